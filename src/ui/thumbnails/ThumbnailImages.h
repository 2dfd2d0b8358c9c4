#pragma once

#include <QImage>
#include <QQuickAsyncImageProvider>
#include <QThreadPool>
#include <atomic>
#include <functional>
#include <string>

#include "ui/thumbnails/ThumbnailGate.h"

namespace vellomar {

// Small pictures of files for QML, at the addresses of thumbnailAddress(): square, at most as large as the size that is
// asked for, with rounded corners. Decoded three at a time, in the order in which they were asked for, at low priority.
// One that nobody wants any more when its turn comes is not decoded. Nothing is kept: whoever shows a picture holds it.
//
// Asked on any thread. Destroyed, it waits for the pictures that are being decoded.
class ThumbnailImages final : public QQuickAsyncImageProvider {
public:
    // The picture of a file, cut to a square of at most so many pixels a side; a null image where there is none. Called
    // on up to three threads at a time; it must not throw.
    using Decode = std::function<QImage(const std::string& path, int size)>;

    explicit ThumbnailImages(Decode decode);
    ~ThumbnailImages() override;
    ThumbnailImages(const ThumbnailImages&) = delete;
    ThumbnailImages& operator=(const ThumbnailImages&) = delete;

    // Waits for the pictures that are being decoded; of all others, now and later, there is none. An engine that goes
    // may leave this to its own threads, which know nothing of what `decode` needs.
    void end();

    QQuickImageResponse* requestImageResponse(const QString& id, const QSize& requestedSize) override;

private:
    const Decode decode_;
    std::atomic<bool> isEnding_ = false;
    ThumbnailGate gate_;
    QThreadPool threads_;
};

}  // namespace vellomar
