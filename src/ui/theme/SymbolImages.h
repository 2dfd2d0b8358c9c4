#pragma once

#include <QQuickImageProvider>

namespace vellomar {

// The symbols as images of one colour, for QML: "image://symbols/eye.fill/F5C518", at the size that is asked for. A
// symbol that is not known, or a size of nothing, gives no image. Any thread.
class SymbolImages final : public QQuickImageProvider {
public:
    SymbolImages() : QQuickImageProvider(QQuickImageProvider::Image) {}

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

}  // namespace vellomar
