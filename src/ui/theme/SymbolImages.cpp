#include "ui/theme/SymbolImages.h"

#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QStringView>
#include <QSvgRenderer>

#include "ui/theme/Symbols.h"

namespace vellomar {
namespace {

constexpr QSize kDefaultSize{16, 16};

// The drawings leave their colour to the text around them.
QByteArray drawing(const QString& icon, QStringView colour) {
    QFile file(icon);
    if (icon.isEmpty() || !file.open(QIODevice::ReadOnly)) return {};
    return file.readAll().replace("currentColor", "#" + colour.toLatin1());
}

QImage rendered(const QByteArray& svg, QSize size) {
    QSvgRenderer renderer(svg);
    if (!renderer.isValid() || size.isEmpty()) return {};
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter);
    return image;
}

}  // namespace

QImage SymbolImages::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const QSize wanted = requestedSize.isValid() ? requestedSize : kDefaultSize;
    if (size != nullptr) *size = wanted;
    const qsizetype slash = id.lastIndexOf(u'/');
    if (slash < 0) return {};
    const QStringView whole(id);
    return rendered(drawing(iconOf(whole.first(slash)), whole.sliced(slash + 1)), wanted);
}

}  // namespace vellomar
