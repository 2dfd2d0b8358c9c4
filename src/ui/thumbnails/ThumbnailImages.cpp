#include "ui/thumbnails/ThumbnailImages.h"

#include <QBrush>
#include <QPainter>
#include <QQuickTextureFactory>
#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

#include "platform/ThreadPriority.h"
#include "ui/thumbnails/ThumbnailAddress.h"

namespace vellomar {
namespace {

constexpr int kThreads = 3;  // as many as the gate lets in
constexpr double kCornerOfSize = 3.0 / 36.0;

// Cut here, once: a view would have to do it again for each frame.
QImage withRoundedCorners(const QImage& picture) {
    QImage rounded(picture.size(), QImage::Format_ARGB32_Premultiplied);
    rounded.fill(Qt::transparent);
    QPainter painter(&rounded);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(picture));
    const double corner = kCornerOfSize * picture.width();
    painter.drawRoundedRect(picture.rect(), corner, corner);
    painter.end();
    return rounded;
}

class Response;

// One picture that was asked for, between the one who asked and the thread that decodes it.
struct Request {
    std::string path;
    int size = 0;
    std::atomic<bool> isCancelled = false;
    std::mutex lock;
    Response* response = nullptr;  // under `lock`; null once it is gone
};

class Response final : public QQuickImageResponse {
public:
    explicit Response(std::shared_ptr<Request> request) : request_(std::move(request)) { request_->response = this; }
    ~Response() override {
        const std::scoped_lock hold(request_->lock);
        request_->response = nullptr;
    }
    Response(const Response&) = delete;
    Response& operator=(const Response&) = delete;

    [[nodiscard]] QQuickTextureFactory* textureFactory() const override {
        return QQuickTextureFactory::textureFactoryForImage(image_);
    }
    [[nodiscard]] QString errorString() const override { return {}; }
    void cancel() override { request_->isCancelled = true; }

    // On the thread that it lives on.
    void finish(QImage image) {
        image_ = std::move(image);
        emit finished();
    }

private:
    std::shared_ptr<Request> request_;
    QImage image_;
};

void deliver(Request& request, const QImage& image) {
    const std::scoped_lock hold(request.lock);
    if (request.response == nullptr) return;
    QMetaObject::invokeMethod(
        request.response, [response = request.response, image] { response->finish(image); }, Qt::QueuedConnection);
}

}  // namespace

ThumbnailImages::ThumbnailImages(Decode decode) : decode_(std::move(decode)) {
    threads_.setMaxThreadCount(kThreads);
    threads_.setExpiryTimeout(-1);
}

ThumbnailImages::~ThumbnailImages() {
    end();
}

void ThumbnailImages::end() {
    isEnding_ = true;
    threads_.waitForDone();
}

QQuickImageResponse* ThumbnailImages::requestImageResponse(const QString& id, const QSize& requestedSize) {
    auto request = std::make_shared<Request>();
    request->path = pathOfThumbnail(id);
    request->size = requestedSize.width();
    auto* const response = new Response(request);
    gate_.acquire([this, request] {
        threads_.start([this, request] {
            thread_local const bool isLowered = (lowerPriorityOfThisThread(), true);
            static_cast<void>(isLowered);
            const auto picture = request->isCancelled || isEnding_ ? QImage() : decode_(request->path, request->size);
            deliver(*request, picture.isNull() ? picture : withRoundedCorners(picture));
            gate_.release();
        });
    });
    return response;
}

}  // namespace vellomar
