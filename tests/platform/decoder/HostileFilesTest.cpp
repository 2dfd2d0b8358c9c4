// Files made to break readers, put to the real decoder. Each has no metadata, soon, and in little memory.
#include <chrono>
#include <fstream>

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/LinuxFileSystem.h"
#include "platform/decoder/MetadataDecoder.h"
#include "support/BigEndian.h"
#include "support/DecoderProgram.h"
#include "support/MediaFiles.h"
#include "support/ProcessCensus.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using testing::bigEndian;

// Beyond what even a sanitized decoder takes; a reader that scans 2 GB or decodes 10,000 megapixels takes longer.
constexpr auto kSoon = std::chrono::seconds(20);
constexpr long kLittleMemoryInKiB = 256L * 1024;

class HostileFiles : public ::testing::Test {
protected:
    MediaMetadata read(const std::string& path, MediaKind kind) {
        const auto file = disk.openForReading(path, true);
        EXPECT_TRUE(file.has_value()) << path;
        const auto start = std::chrono::steady_clock::now();
        auto metadata = decoder.readMetadata(**file, kind).value_or(MediaMetadata{});
        EXPECT_LT(std::chrono::steady_clock::now() - start, kSoon) << path;
        return metadata;
    }

    void expectNothingIn(const std::string& path) {
        EXPECT_EQ(read(path, MediaKind::image).image, ImageProperties{}) << path;
        EXPECT_EQ(read(path, MediaKind::video).video.creationDate, std::nullopt) << path;
    }

    // A file of 2 GiB that takes no room on the disk: `head`, then nothing but holes, then `tail`.
    std::string sparse(const std::string& name, std::string_view head, std::string_view tail = {}) const {
        auto path = folder.write(name, head);
        constexpr off_t kSize = off_t{2} << 30U;
        EXPECT_EQ(::truncate(path.c_str(), kSize), 0);
        std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(kSize - static_cast<off_t>(tail.size()));
        file << tail;
        return path;
    }

    // The memory that is the decoder's own, in KiB; that of a mapped file is not.
    static long memoryOfDecoder() {
        const auto process = testing::childrenOfThisProcess().running.at(0);
        std::ifstream status(fmt::format("/proc/{}/status", process));
        for (std::string line; std::getline(status, line);)
            if (line.starts_with("RssAnon:")) return std::stol(line.substr(line.find_first_of("0123456789")));
        return -1;
    }

    testing::TemporaryFolder folder;
    LinuxFileSystem disk;
    MetadataDecoder decoder{testing::decoderProgram()};
};

TEST_F(HostileFiles, HugeSparseFilesOfEveryKind) {
    const std::array heads = {std::string("\xff\xd8\xff\xe0\0\x10JFIF\0", 11),
                              std::string("\xff\xd8", 2),
                              std::string("II*\0\xf0\xff\xff\x7f", 8),
                              std::string("\x89PNG\r\n\x1a\n", 8),
                              std::string("\0\0\0\x18"
                                          "ftypheic\0\0\0\0mif1heic\0\0\0\0meta",
                                          32),
                              std::string("\0\0\0\x18"
                                          "ftypmp42\0\0\0\0mp42isom\x7f\xff\xff\xe8moov",
                                          32),
                              std::string("\x1a\x45\xdf\xa3\x01\0\0\0\x7f\xff\xff\xff", 12),
                              std::string("RIFF\xf8\xff\xff\x7f"
                                          "AVI LIST",
                                          16),
                              std::string("FUJIFILMCCD-RAW 0201", 20)};
    for (std::size_t i = 0; i < heads.size(); ++i)
        expectNothingIn(sparse(fmt::format("{}.bin", i), heads[i], "end"));
}

TEST_F(HostileFiles, APictureOf100000By100000IsNotDecoded) {
    const auto header = "IHDR" + bigEndian(100'000) + bigEndian(100'000) + std::string("\x08\x06\0\0\0", 5);
    expectNothingIn(folder.write("huge.png", "\x89PNG\r\n\x1a\n" + bigEndian(13) + header + bigEndian(0) +
                                                 bigEndian(0) + "IEND" + bigEndian(0xae426082)));
    expectNothingIn(folder.write("huge.bmp", "BM" + std::string(12, '\0') + std::string("\x28\0\0\0", 4) +
                                                 std::string("\xa0\x86\x01\0\xa0\x86\x01\0\x01\0\x18\0", 12)));
    EXPECT_LT(memoryOfDecoder(), kLittleMemoryInKiB);
}

TEST_F(HostileFiles, ADirectoryThatPointsToItself) {
    // One entry, then the offset of the next directory: this one.
    const std::string entry("\x31\x01\x02\0\x01\0\0\0A\0\0\0", 12);
    expectNothingIn(
        folder.write("next.tif", std::string("II*\0\x08\0\0\0\x01\0", 10) + entry + std::string("\x08\0\0\0", 4)));
    const std::string exifDirectory("\x69\x87\x04\0\x01\0\0\0\x08\0\0\0", 12);
    expectNothingIn(
        folder.write("exif.tif", std::string("II*\0\x08\0\0\0\x01\0", 10) + exifDirectory + std::string(4, '\0')));
}

TEST_F(HostileFiles, BoxesWithinBoxesWithoutEnd) {
    std::string nested;
    for (std::uint32_t depth = 20'000; depth > 0; --depth)
        nested.append(bigEndian(8 * depth)).append("moov");
    expectNothingIn(folder.write("deep.mp4", bigEndian(16) + "ftypmp42" + bigEndian(0) + nested));
}

TEST_F(HostileFiles, CountsThatNoFileCanHold) {
    // 2^32-1 entries; a text of 2 GiB.
    expectNothingIn(folder.write("entries.tif", std::string("II*\0\x08\0\0\0\xff\xff", 10)));
    expectNothingIn(folder.write(
        "long.tif", std::string("II*\0\x08\0\0\0\x01\0\x0f\x01\x02\0\xff\xff\xff\x7f\x1a\0\0\0\0\0\0\0", 26)));
    EXPECT_LT(memoryOfDecoder(), kLittleMemoryInKiB);
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
// Sanitizers keep memory that was given back.
TEST_F(HostileFiles, MemoryStaysFlatOverThousandsOfFiles) {
    const auto image = testing::makeImage(folder, "a.jpg", {"EXIF:DateTimeOriginal=2023:08:14 14:30:21"});
    const auto video = testing::makeVideo(folder, "a.mp4", {"creation_time=2021-03-04T05:06:07Z"});
    constexpr int kReads = 1000;
    const auto readBoth = [&] {
        for (int i = 0; i < kReads; ++i) {
            ASSERT_EQ(read(image, MediaKind::image).image.dateTimeOriginal, "2023:08:14 14:30:21");
            ASSERT_EQ(read(video, MediaKind::video).video.creationDate, "2021-03-04T05:06:07+0000");
        }
    };
    readBoth();
    const auto before = memoryOfDecoder();
    readBoth();
    EXPECT_LT(memoryOfDecoder() - before, 1024);
}
#endif

}  // namespace
}  // namespace vellomar
