#include <chrono>
#include <csignal>
#include <thread>

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/LinuxFileSystem.h"
#include "platform/decoder/MetadataDecoder.h"
#include "platform/decoder/PixelDecoder.h"
#include "support/DecoderProgram.h"
#include "support/ProcessCensus.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using std::chrono::steady_clock;
using testing::childrenOfThisProcess;
using testing::LeavesNothingBehind;

// Files that tell the unruly decoder what to do, read by one decoder after the other.
class DecoderTest : public ::testing::Test {
protected:
    std::optional<MediaMetadata> read(MetadataDecoder& decoder, const std::string& path) {
        const auto file = disk.openForReading(path, true);
        EXPECT_TRUE(file.has_value()) << path;
        return file ? decoder.readMetadata(**file, MediaKind::image) : std::nullopt;
    }

    std::optional<MediaMetadata> tell(MetadataDecoder& decoder, const std::string& word) {
        return read(decoder, folder.write(word, word));
    }

    // What the unruly decoder answers for `word`, and how long that took is short against the 60 s of a hanging one.
    std::optional<std::string> dateFrom(MetadataDecoder& decoder, const std::string& word) {
        const auto start = steady_clock::now();
        const auto metadata = tell(decoder, word);
        EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(20)) << word;
        return metadata ? metadata->image.dateTimeOriginal : std::nullopt;
    }

    LeavesNothingBehind census;
    testing::TemporaryFolder folder{testing::TemporaryFolder::Where::inMemory};
    LinuxFileSystem disk;
    const std::string unruly = UNRULY_DECODER;
};

TEST_F(DecoderTest, OneProcessAnswersRequestAfterRequest) {
    MetadataDecoder decoder(unruly);
    EXPECT_EQ(dateFrom(decoder, "first"), "first");
    const auto process = childrenOfThisProcess().running;
    ASSERT_EQ(process.size(), 1U);
    EXPECT_EQ(dateFrom(decoder, "second"), "second");
    EXPECT_EQ(childrenOfThisProcess().running, process);
}

TEST_F(DecoderTest, NoProcessIsStartedBeforeTheFirstRequest) {
    const MetadataDecoder decoder(unruly);
    EXPECT_TRUE(childrenOfThisProcess().running.empty());
}

TEST_F(DecoderTest, WhateverOneFileDoesItCostsOnlyItsOwnValue) {
    for (const auto* misdeed : {"crash", "exit", "compute", "sleep", "stop", "babble"}) {
        SCOPED_TRACE(misdeed);
        MetadataDecoder decoder(unruly);
        EXPECT_EQ(dateFrom(decoder, "before"), "before");
        EXPECT_EQ(dateFrom(decoder, misdeed), std::nullopt);
        EXPECT_EQ(dateFrom(decoder, "after"), "after");
    }
}

TEST_F(DecoderTest, AnExceptionCostsNotEvenTheProcess) {
    MetadataDecoder decoder(unruly);
    EXPECT_EQ(dateFrom(decoder, "before"), "before");
    const auto process = childrenOfThisProcess().running;
    EXPECT_EQ(tell(decoder, "throw"), std::nullopt);
    EXPECT_EQ(childrenOfThisProcess().running, process);
}

// The raster that the unruly decoder makes of `word`.
std::optional<GreyRaster> rasterFrom(PixelDecoder& decoder, const testing::TemporaryFolder& folder,
                                     const std::string& word) {
    LinuxFileSystem disk;
    const auto file = disk.openForReading(folder.write(word, word), true);
    return decoder.readGreyRaster(**file);
}

TEST_F(DecoderTest, WhateverOneFileDoesItCostsOnlyItsOwnPixels) {
    GreyRaster letterA;
    letterA.pixels.fill('a');
    for (const auto* misdeed : {"crash", "exit", "compute", "sleep", "stop", "babble", "throw"}) {
        SCOPED_TRACE(misdeed);
        PixelDecoder decoder(unruly);
        EXPECT_EQ(rasterFrom(decoder, folder, "a"), letterA);
        EXPECT_EQ(rasterFrom(decoder, folder, misdeed), std::nullopt);
        EXPECT_EQ(rasterFrom(decoder, folder, "a"), letterA);
    }
}

TEST_F(DecoderTest, ADecoderWhoseOtherThreadsComputeIsWaitedFor) {
    PixelDecoder decoder(unruly);
    EXPECT_TRUE(rasterFrom(decoder, folder, "threads").has_value());
}

TEST_F(DecoderTest, APictureComesInMemoryThatTheDecoderCannotTakeAway) {
    PixelDecoder decoder(unruly);
    const auto file = disk.openForReading(folder.write("word", "picture"), true);
    auto picture = decoder.convertToJpeg(**file);
    ASSERT_TRUE(picture.has_value());
    const auto content = picture->content().value();
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(content.data()), content.size()), "picture");
}

TEST_F(DecoderTest, ADecoderThatKnowsNotTheRequestSaysSoAndStays) {
    MetadataDecoder decoder(unruly);
    EXPECT_EQ(dateFrom(decoder, "before"), "before");
    const auto process = childrenOfThisProcess().running;
    const auto file = disk.openForReading(folder.write("video", "video"), true);
    EXPECT_EQ(decoder.readMetadata(**file, MediaKind::video), std::nullopt);
    EXPECT_EQ(childrenOfThisProcess().running, process);
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
// Sanitizers need more memory than the limit, so that there is none with them.
TEST_F(DecoderTest, EatenMemoryCostsOnlyTheFilesOwnValue) {
    MetadataDecoder decoder(unruly);
    EXPECT_EQ(dateFrom(decoder, "before"), "before");
    EXPECT_EQ(dateFrom(decoder, "eat"), std::nullopt);
    EXPECT_EQ(dateFrom(decoder, "after"), "after");
}
#endif

TEST_F(DecoderTest, AProcessKilledInTheMiddleOfARequestIsReplaced) {
    MetadataDecoder decoder(unruly);
    EXPECT_EQ(dateFrom(decoder, "before"), "before");
    const auto process = childrenOfThisProcess().running.at(0);
    std::thread killer([&] {
        // While it sleeps over the file.
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        ::kill(process, SIGKILL);
    });
    EXPECT_EQ(dateFrom(decoder, "sleep"), std::nullopt);
    killer.join();
    EXPECT_EQ(dateFrom(decoder, "after"), "after");
}

TEST_F(DecoderTest, AProcessKilledBetweenRequestsCostsTheNextFileAtMost) {
    MetadataDecoder decoder(unruly);
    EXPECT_EQ(dateFrom(decoder, "before"), "before");
    const auto process = childrenOfThisProcess().running.at(0);
    ::kill(process, SIGKILL);
    ASSERT_TRUE(testing::comesTrue([&] { return testing::stateOfProcess(process) == 'Z'; }));
    static_cast<void>(tell(decoder, "next"));
    EXPECT_EQ(dateFrom(decoder, "after"), "after");
}

TEST_F(DecoderTest, TenThousandRequestsAndAHundredDeathsLeaveNothingBehind) {
    MetadataDecoder decoder(unruly);
    const auto good = folder.write("good", "good");
    const auto bad = folder.write("bad", "crash");
    constexpr int kRequests = 10'000;
    constexpr int kDeaths = 100;
    int answers = 0;
    int deaths = 0;
    for (int i = 0; i < kRequests; ++i) {
        const auto metadata = read(decoder, i % (kRequests / kDeaths) == 0 ? bad : good);
        ++(metadata ? answers : deaths);
    }
    EXPECT_EQ(deaths, kDeaths);
    EXPECT_EQ(answers, kRequests - kDeaths);
    EXPECT_TRUE(childrenOfThisProcess().zombies.empty());
    EXPECT_EQ(childrenOfThisProcess().running.size(), 1U);
}

TEST_F(DecoderTest, AProgramThatCannotStartGivesNoValues) {
    for (const auto& program : {folder / "missing", std::string("/bin/true"), folder.write("no program", "text")}) {
        SCOPED_TRACE(program);
        MetadataDecoder decoder(program);
        for (int i = 0; i < 10; ++i)
            EXPECT_EQ(tell(decoder, "word"), std::nullopt);
    }
}

TEST_F(DecoderTest, WhatIsNoRegularFileHasNoMetadata) {
    MetadataDecoder decoder(testing::decoderProgram());
    const auto pipe = folder / "pipe.jpg";
    ASSERT_EQ(::mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(read(decoder, pipe), MediaMetadata{});
    EXPECT_EQ(read(decoder, "/dev/null"), MediaMetadata{});
    EXPECT_EQ(read(decoder, "/dev/zero"), MediaMetadata{});
    EXPECT_EQ(read(decoder, folder.write("empty.jpg", "")), MediaMetadata{});
}

TEST_F(DecoderTest, TheWholeFileIsReadWhereverItWasReadTo) {
    MetadataDecoder decoder(unruly);
    const auto file = disk.openForReading(folder.write("file", "whole"), true);
    std::array<std::byte, 3> read{};
    ASSERT_TRUE((*file)->read(read).has_value());
    EXPECT_EQ(decoder.readMetadata(**file, MediaKind::image)->image.dateTimeOriginal, "whole");
}

TEST_F(DecoderTest, AFileCutShortUnderTheReaderCostsOnlyItsOwnValue) {
    // The tail of the last page behind the end of the file can be read, whole pages behind it cannot.
    MetadataDecoder decoder(testing::decoderProgram());
    const auto path = folder.write("cut.tif", std::string("II*\0\0\0\x10\0", 8) + std::string(2U << 20U, '\0'));
    const auto file = disk.openForReading(path, true);
    ASSERT_TRUE(file.has_value());
    ASSERT_EQ(::truncate(path.c_str(), 100), 0);
    const auto metadata = decoder.readMetadata(**file, MediaKind::image);
    EXPECT_EQ(metadata.value_or(MediaMetadata{}), MediaMetadata{});
}

}  // namespace
}  // namespace vellomar
