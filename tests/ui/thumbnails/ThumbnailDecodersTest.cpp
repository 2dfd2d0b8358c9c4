#include <QColor>
#include <cstdlib>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "support/DecoderProgram.h"
#include "support/TemporaryFolder.h"
#include "ui/QtPrinters.h"
#include "ui/thumbnails/ThumbnailDecoders.h"

namespace vellomar {
namespace {

class ThumbnailDecodersTest : public ::testing::Test {
protected:
    [[nodiscard]] std::string makePicture(const std::string& name, const std::string& colour) {
        auto path = folder / name;
        EXPECT_EQ(std::system(("convert -size 300x200 xc:" + colour + " '" + path + "'").c_str()), 0);
        return path;
    }

    testing::TemporaryFolder folder{testing::TemporaryFolder::Where::inMemory};
    LinuxFileSystem fileSystem;
    ThumbnailDecoders decoders{fileSystem, testing::pixelDecoderProgram()};
};

TEST_F(ThumbnailDecodersTest, GivesTheMiddleAsASquare) {
    const auto picture = decoders.decode(makePicture("a.png", "red"), 72);
    ASSERT_EQ(picture.size(), QSize(72, 72));
    EXPECT_EQ(QColor(picture.pixel(0, 0)), QColor(Qt::red));
    EXPECT_EQ(QColor(picture.pixel(71, 71)), QColor(Qt::red));
}

TEST_F(ThumbnailDecodersTest, GivesNothingForWhatIsNoPicture) {
    EXPECT_TRUE(decoders.decode(folder / "gone.jpg", 72).isNull());
    EXPECT_TRUE(decoders.decode(folder.write("broken.jpg", "no picture"), 72).isNull());
    EXPECT_TRUE(decoders.decode(folder.write("empty.jpg", ""), 72).isNull());
    EXPECT_FALSE(decoders.decode(makePicture("a.png", "red"), 72).isNull()) << "the next one is decoded";
}

TEST_F(ThumbnailDecodersTest, SeveralThreadsDecodeAtATime) {
    const auto red = makePicture("red.png", "red");
    const auto blue = makePicture("blue.png", "blue");
    std::vector<QImage> pictures(12);
    {
        std::vector<std::jthread> threads;
        for (std::size_t thread = 0; thread < 3; ++thread)
            threads.emplace_back([&, thread] {
                for (std::size_t i = thread; i < pictures.size(); i += 3)
                    pictures[i] = decoders.decode(i % 2 == 0 ? red : blue, 72);
            });
    }
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        ASSERT_FALSE(pictures[i].isNull()) << i;
        EXPECT_EQ(QColor(pictures[i].pixel(36, 36)), QColor(i % 2 == 0 ? Qt::red : Qt::blue)) << i;
    }
}

}  // namespace
}  // namespace vellomar
