#include <QCoreApplication>
#include <QQuickTextureFactory>
#include <QSignalSpy>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/desktop/SpinUntil.h"
#include "ui/thumbnails/ThumbnailAddress.h"
#include "ui/thumbnails/ThumbnailImages.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using testing::spinUntil;

QString idOf(const std::string& path) {
    return thumbnailAddress(path).path().mid(1);
}

// Decodes nothing until it is told to.
class SlowDecoding {
public:
    QImage operator()(const std::string& path, int size) {
        std::unique_lock hold(lock_);
        begun_.push_back(path);
        most_ = std::max(most_, ++running_);
        mayGoOn_.wait(hold, [this] { return isReleased_; });
        --running_;
        QImage image(size, size, QImage::Format_RGB32);
        image.fill(Qt::red);
        return image;
    }

    void release() {
        const std::scoped_lock hold(lock_);
        isReleased_ = true;
        mayGoOn_.notify_all();
    }

    [[nodiscard]] std::vector<std::string> begun() {
        const std::scoped_lock hold(lock_);
        return begun_;
    }
    [[nodiscard]] int running() {
        const std::scoped_lock hold(lock_);
        return running_;
    }
    [[nodiscard]] int most() {
        const std::scoped_lock hold(lock_);
        return most_;
    }

private:
    std::mutex lock_;
    std::condition_variable mayGoOn_;
    bool isReleased_ = false;
    int running_ = 0;
    int most_ = 0;
    std::vector<std::string> begun_;
};

class ThumbnailImagesTest : public ::testing::Test {
protected:
    ~ThumbnailImagesTest() override { decoding.release(); }

    QQuickImageResponse& ask(const std::string& path) {
        responses.emplace_back(images.requestImageResponse(idOf(path), {72, 72}));
        QObject::connect(responses.back().get(), &QQuickImageResponse::finished, [this] { ++finished; });
        return *responses.back();
    }

    SlowDecoding decoding;
    ThumbnailImages images{[this](const std::string& path, int size) { return decoding(path, size); }};
    std::vector<std::unique_ptr<QQuickImageResponse>> responses;
    int finished = 0;
};

TEST_F(ThumbnailImagesTest, ThreeAreDecodedAtATime) {
    for (int i = 0; i < 10; ++i)
        ask("/in/" + std::to_string(i) + ".jpg");
    ASSERT_TRUE(spinUntil([this] { return decoding.begun().size() == 3; }));
    decoding.release();
    ASSERT_TRUE(spinUntil([this] { return finished == 10; }));
    EXPECT_LE(decoding.most(), 3);
    EXPECT_EQ(decoding.begun().size(), 10);
}

TEST_F(ThumbnailImagesTest, WhatNobodyWantsAnyMoreIsNotDecoded) {
    for (int i = 0; i < 3; ++i)
        ask("/in/" + std::to_string(i) + ".jpg");
    ask("/in/gone.jpg").cancel();
    ask("/in/last.jpg");
    ASSERT_TRUE(spinUntil([this] { return decoding.begun().size() == 3; }));
    decoding.release();
    ASSERT_TRUE(spinUntil([this] { return finished == 5; })) << "a cancelled one ends as well";
    EXPECT_EQ(std::ranges::count(decoding.begun(), "/in/gone.jpg"), 0);
    EXPECT_EQ(std::ranges::count(decoding.begun(), "/in/last.jpg"), 1);
}

TEST_F(ThumbnailImagesTest, OneWhoIsGoneGetsNothing) {
    ask("/in/a.jpg");
    ASSERT_TRUE(spinUntil([this] { return decoding.begun().size() == 1; }));
    responses.clear();
    decoding.release();
    EXPECT_EQ(finished, 0);
}

TEST_F(ThumbnailImagesTest, TheEndWaitsForWhatIsBeingDecodedAndDecodesNoMore) {
    for (int i = 0; i < 5; ++i)
        ask("/in/" + std::to_string(i) + ".jpg");
    ASSERT_TRUE(spinUntil([this] { return decoding.begun().size() == 3; }));
    const std::jthread releasing([this] { decoding.release(); });
    images.end();
    EXPECT_EQ(decoding.running(), 0);
    ask("/in/later.jpg");
    ASSERT_TRUE(spinUntil([this] { return finished == 6; }));
    EXPECT_EQ(std::ranges::count(decoding.begun(), "/in/later.jpg"), 0);
}

TEST_F(ThumbnailImagesTest, APictureHasRoundCornersAndAFailureIsNone) {
    decoding.release();
    auto& response = ask("/in/a.jpg");
    ASSERT_TRUE(spinUntil([this] { return finished == 1; }));
    const std::unique_ptr<QQuickTextureFactory> factory(response.textureFactory());
    const auto image = factory->image();
    EXPECT_EQ(image.size(), QSize(72, 72));
    EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
    EXPECT_EQ(QColor(image.pixel(36, 36)), QColor(Qt::red));

    ThumbnailImages nothing([](const std::string&, int) { return QImage(); });
    const std::unique_ptr<QQuickImageResponse> none(nothing.requestImageResponse(idOf("/in/a.jpg"), {72, 72}));
    QSignalSpy ended(none.get(), &QQuickImageResponse::finished);
    ASSERT_TRUE(spinUntil([&] { return ended.count() == 1; }));
    EXPECT_TRUE(none->errorString().isEmpty()) << "a file without a picture is no error to tell";
}

}  // namespace
}  // namespace vellomar
