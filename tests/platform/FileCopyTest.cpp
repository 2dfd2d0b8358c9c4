#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/FileCopy.h"
#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::contentOf;
using testing::exists;
using testing::TemporaryFolder;

struct stat kernelStatusOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status;
}

// Sets an extended attribute. False where the volume has none, in which case a copy has none either.
bool setAttribute(const std::string& path, const char* name, std::string_view value) {
    if (::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0) return true;
    EXPECT_EQ(errno, ENOTSUP) << name;
    return false;
}

std::string attributeOf(const std::string& path, const char* name) {
    std::array<char, 256> value{};
    const auto size = ::getxattr(path.c_str(), name, value.data(), value.size());
    return size < 0 ? "none" : std::string(value.data(), static_cast<std::size_t>(size));
}

TEST(FileCopy, CarriesEveryByte) {
    constexpr std::size_t kMebibyte = 1024 * 1024;
    LinuxFileSystem fileSystem;
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, kMebibyte, kMebibyte + 1}) {
        SCOPED_TRACE(size);
        const TemporaryFolder folder;
        std::string content(size, '\0');
        for (std::size_t i = 0; i < size; ++i)
            content[i] = static_cast<char>(i * 31 % 251);
        const auto source = folder.write("source", content);
        ASSERT_TRUE(copyFile(fileSystem, source, folder / "target"));
        EXPECT_TRUE(contentOf(folder / "target") == content);
        EXPECT_TRUE(contentOf(source) == content);
    }
}

TEST(FileCopy, CarriesAFileWithHoles) {
    constexpr off_t kSize = 8 * 1024 * 1024;
    constexpr std::streamoff kMiddle = 5'000'000;
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto source = folder.write("source", "start");
    ASSERT_EQ(::truncate(source.c_str(), kSize), 0);
    std::fstream(source, std::ios::in | std::ios::out | std::ios::binary).seekp(kMiddle) << "middle";
    ASSERT_TRUE(copyFile(fileSystem, source, folder / "target"));
    EXPECT_EQ(kernelStatusOf(folder / "target").st_size, kSize);
    EXPECT_TRUE(contentOf(folder / "target") == contentOf(source));
}

TEST(FileCopy, KeepsTheMode) {
    LinuxFileSystem fileSystem;
    for (const mode_t mode : {0644U, 0600U, 0755U, 0444U, 0666U}) {
        SCOPED_TRACE(mode);
        const TemporaryFolder folder;
        const auto source = folder.write("source");
        ASSERT_EQ(::chmod(source.c_str(), mode), 0);
        ASSERT_TRUE(copyFile(fileSystem, source, folder / "target"));
        EXPECT_EQ(kernelStatusOf(folder / "target").st_mode & 07777U, mode);
    }
}

TEST(FileCopy, DropsTheRightToActAsTheOwner) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto source = folder.write("source");
    ASSERT_EQ(::chmod(source.c_str(), 06755), 0);
    ASSERT_TRUE(copyFile(fileSystem, source, folder / "target"));
    EXPECT_EQ(kernelStatusOf(folder / "target").st_mode & 07777U, 0755U);
}

TEST(FileCopy, KeepsTimesToTheNanosecond) {
    constexpr timespec kAccessed{1'500'000'000, 111'222'333};
    constexpr timespec kModifieds[] = {{1'400'000'000, 123'456'789}, {-86'400, 987'654'321}};
    LinuxFileSystem fileSystem;
    for (const auto& modified : kModifieds) {
        SCOPED_TRACE(modified.tv_sec);
        const TemporaryFolder folder;
        const auto source = folder.write("source");
        const std::array times = {kAccessed, modified};
        ASSERT_EQ(::utimensat(AT_FDCWD, source.c_str(), times.data(), 0), 0);
        ASSERT_TRUE(copyFile(fileSystem, source, folder / "target"));
        const auto before = kernelStatusOf(source);
        const auto copy = kernelStatusOf(folder / "target");
        EXPECT_EQ(copy.st_mtim.tv_sec, modified.tv_sec);
        EXPECT_EQ(copy.st_mtim.tv_nsec, modified.tv_nsec);
        EXPECT_EQ(copy.st_atim.tv_sec, before.st_atim.tv_sec);
        EXPECT_EQ(copy.st_atim.tv_nsec, before.st_atim.tv_nsec);
    }
}

TEST(FileCopy, KeepsTheAttributesOfUsers) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto source = folder.write("source");
    const std::string binary("\0\xFF\n", 3);
    const bool areKept = setAttribute(source, "user.xdg.tags", "holiday,Rome");
    EXPECT_EQ(setAttribute(source, "user.empty", ""), areKept);
    EXPECT_EQ(setAttribute(source, "user.binary", binary), areKept);
    ASSERT_TRUE(copyFile(fileSystem, source, folder / "target"));
    EXPECT_EQ(attributeOf(folder / "target", "user.xdg.tags"), areKept ? "holiday,Rome" : "none");
    EXPECT_EQ(attributeOf(folder / "target", "user.empty"), areKept ? "" : "none");
    EXPECT_EQ(attributeOf(folder / "target", "user.binary"), areKept ? binary : "none");
}

// The kernel's form of an access control list: owner rw, user 1234 r, group r, mask r, others nothing.
std::string accessControlList() {
    const auto entry = [](char tag, char permissions, std::string_view id) {
        return std::string{tag, '\0', permissions, '\0'} + std::string(id);
    };
    constexpr std::string_view kNobodyInParticular = "\xFF\xFF\xFF\xFF";
    constexpr std::string_view kUser1234("\xD2\x04\0\0", 4);
    return std::string("\x02\0\0\0", 4) + entry(0x01, 6, kNobodyInParticular) + entry(0x02, 4, kUser1234) +
           entry(0x04, 4, kNobodyInParticular) + entry(0x10, 4, kNobodyInParticular) +
           entry(0x20, 0, kNobodyInParticular);
}

TEST(FileCopy, KeepsTheAccessControlList) {
    constexpr const char* kName = "system.posix_acl_access";
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto source = folder.write("source");
    const bool isKept = setAttribute(source, kName, accessControlList());
    ASSERT_TRUE(copyFile(fileSystem, source, folder / "target"));
    EXPECT_EQ(attributeOf(folder / "target", kName), isKept ? accessControlList() : "none");
    EXPECT_EQ(kernelStatusOf(folder / "target").st_mode, kernelStatusOf(source).st_mode);
}

TEST(FileCopy, RefusesATargetThatStands) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto source = folder.write("source", "new");
    const auto target = folder.write("target", "old");
    const auto copied = copyFile(fileSystem, source, target);
    ASSERT_FALSE(copied.has_value());
    EXPECT_EQ(copied.error().code, EEXIST);
    EXPECT_EQ(contentOf(target), "old");
}

TEST(FileCopy, NeverWritesThroughASymlinkAtTheTarget) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto source = folder.write("source", "new");
    const auto photo = folder.write("photo", "pixels");
    fs::create_symlink(photo, folder / "link");
    fs::create_symlink(folder / "nowhere", folder / "dangling");
    EXPECT_FALSE(copyFile(fileSystem, source, folder / "link"));
    EXPECT_FALSE(copyFile(fileSystem, source, folder / "dangling"));
    EXPECT_EQ(contentOf(photo), "pixels");
    EXPECT_FALSE(exists(folder / "nowhere"));
}

TEST(FileCopy, DoesNotFollowASymlinkAtTheSource) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    fs::create_symlink(folder.write("photo", "pixels"), folder / "link");
    const auto copied = copyFile(fileSystem, folder / "link", folder / "target");
    ASSERT_FALSE(copied.has_value());
    EXPECT_EQ(copied.error().code, ELOOP);
    EXPECT_FALSE(exists(folder / "target"));
}

TEST(FileCopy, TellsOfAMissingSourceAndAMissingFolder) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto source = folder.write("source");
    const auto sourceless = copyFile(fileSystem, folder / "missing", folder / "target");
    ASSERT_FALSE(sourceless.has_value());
    EXPECT_EQ(sourceless.error().code, ENOENT);
    EXPECT_FALSE(exists(folder / "target"));
    const auto folderless = copyFile(fileSystem, source, folder / "missing/target");
    ASSERT_FALSE(folderless.has_value());
    EXPECT_EQ(folderless.error().code, ENOENT);
}

TEST(FileCopy, AFolderIsNoSource) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.makeFolder("source");
    EXPECT_FALSE(copyFile(fileSystem, folder / "source", folder / "target"));
}

TEST(FileCopy, FilesOfTheKernelThatClaimNoSizeAreReadAllTheSame) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    ASSERT_TRUE(copyFile(fileSystem, "/proc/version", folder / "target"));
    EXPECT_EQ(contentOf(folder / "target"), contentOf("/proc/version"));
    EXPECT_NE(contentOf(folder / "target"), "");
}

// Grows by a piece whenever it is read, a given number of times.
class GrowingFile final : public InputFile {
public:
    GrowingFile(FileSystem& fileSystem, std::string path, int pieces)
        : file_(fileSystem.openForReading(path, false).value()), path_(std::move(path)), pieces_(pieces) {}

    Expected<std::size_t> read(std::span<std::byte> buffer) override {
        if (pieces_-- > 0) std::ofstream(path_, std::ios::app | std::ios::binary) << "more";
        return file_->read(buffer);
    }
    Expected<FileStatus> status() override { return file_->status(); }
    [[nodiscard]] int descriptor() const override { return file_->descriptor(); }

private:
    std::unique_ptr<InputFile> file_;
    std::string path_;
    int pieces_;
};

TEST(FileCopy, AGrowingSourceIsCopiedToTheEndThatItHasByThen) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    GrowingFile source(fileSystem, folder.write("source", "begin "), 3);
    {
        const auto target = fileSystem.createFile(folder / "target", NewFileAccess::owner);
        ASSERT_TRUE(target.has_value());
        EXPECT_TRUE(copyThroughMemory(source, **target, 5));
    }
    EXPECT_EQ(contentOf(folder / "target"), contentOf(folder / "source"));
    EXPECT_EQ(contentOf(folder / "target"), "begin moremoremore");
}

// Takes a few bytes at a time, and after `room` bytes none.
class NarrowFile final : public OutputFile {
public:
    explicit NarrowFile(std::size_t room) : room_(room) {}

    Expected<std::size_t> write(std::span<const std::byte> data) override {
        constexpr std::size_t kMostAtOnce = 3;
        const auto count = std::min({data.size(), room_, kMostAtOnce});
        for (const auto byte : data.first(count))
            content += static_cast<char>(byte);
        room_ -= count;
        return count;
    }
    Expected<void> cloneFrom(InputFile& /*source*/) override { return systemFailure(ENOTSUP); }
    Expected<std::size_t> copyFrom(InputFile& /*source*/, std::size_t /*maxBytes*/) override {
        return systemFailure(EXDEV);
    }
    Expected<void> takeAttributesOf(InputFile& /*source*/) override { return {}; }
    Expected<void> sync() override { return {}; }
    Expected<void> dropCache() override { return systemFailure(ESPIPE); }
    [[nodiscard]] int descriptor() const override { return -1; }

    std::string content;

private:
    std::size_t room_;
};

TEST(FileCopy, WritesOnWhereAWriteTookLessThanAll) {
    NarrowFile target(1'000);
    EXPECT_TRUE(writeAll(target, std::as_bytes(std::span(std::string_view("ten letters")))));
    EXPECT_EQ(target.content, "ten letters");
}

TEST(FileCopy, AWriteThatTakesNothingIsAFailureAndNoEndlessLoop) {
    NarrowFile target(4);
    const auto written = writeAll(target, std::as_bytes(std::span(std::string_view("ten letters"))));
    ASSERT_FALSE(written.has_value());
    EXPECT_EQ(written.error().code, EIO);
    EXPECT_EQ(target.content, "ten ");
}

TEST(FileCopy, AnUndroppableCacheIsNoFailure) {
    NarrowFile target(4);
    EXPECT_TRUE(settle(target));
}

}  // namespace
}  // namespace vellomar
