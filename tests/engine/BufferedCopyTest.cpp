#include <cerrno>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "engine/BufferedCopy.h"
#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::contentOf;
using testing::exists;
using testing::TemporaryFolder;

// What went wrong; an empty error where nothing did.
Error errorOf(const Expected<void>& result) {
    return result ? Error() : result.error();
}

TEST(BufferedCopy, CarriesEveryByteAroundTheSizeOfTheBuffer) {
    constexpr std::size_t kBuffer = 4 * 1024 * 1024;
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, kBuffer - 1, kBuffer, kBuffer + 1}) {
        SCOPED_TRACE(size);
        std::string content(size, 'x');
        if (size > 0) content.back() = 'y';
        const auto source = folder.write("source", content);
        ASSERT_TRUE(bufferedCopy(fileSystem, source, folder / "partial"));
        EXPECT_TRUE(contentOf(folder / "partial") == content);
    }
}

TEST(BufferedCopy, CarriesNothingButTheContent) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto source = folder.write("source");
    fs::permissions(source, fs::perms{0400});
    const auto longAgo = instantFromUnixSeconds(std::int64_t{1'000'000'000});
    ASSERT_TRUE(fileSystem.setModificationDate(source, longAgo));
    const auto before = umask(0022);
    const auto copied = bufferedCopy(fileSystem, source, folder / "partial");
    umask(before);
    ASSERT_TRUE(copied);
    EXPECT_EQ(fs::status(folder / "partial").permissions(), fs::perms{0644});
    EXPECT_GT(fileSystem.status(folder / "partial").value().modified, longAgo);
}

TEST(BufferedCopy, ReplacesAStalePartialFile) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto source = folder.write("source", "new");
    ASSERT_TRUE(bufferedCopy(fileSystem, source, folder.write("partial", "stale and longer")));
    EXPECT_EQ(contentOf(folder / "partial"), "new");
}

TEST(BufferedCopy, ReplacesASymlinkAndNotWhatItLeadsTo) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto photo = folder.write("photo", "pixels");
    fs::create_symlink(photo, folder / "partial");
    ASSERT_TRUE(bufferedCopy(fileSystem, folder.write("source", "new"), folder / "partial"));
    EXPECT_EQ(contentOf(photo), "pixels");
    EXPECT_EQ(contentOf(folder / "partial"), "new");
}

TEST(BufferedCopy, FollowsASymlinkAtTheSource) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    fs::create_symlink(folder.write("photo", "pixels"), folder / "source");
    ASSERT_TRUE(bufferedCopy(fileSystem, folder / "source", folder / "partial"));
    EXPECT_EQ(contentOf(folder / "partial"), "pixels");
}

TEST(BufferedCopy, ASourceThatCannotBeOpenedIsCodeOne) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto source = folder / "missing";
    EXPECT_EQ(errorOf(bufferedCopy(fileSystem, source, folder / "partial")),
              (Error{"Vellomar", 1, "Cannot open source: " + source}));
    EXPECT_FALSE(exists(folder / "partial"));
}

TEST(BufferedCopy, APartialFileThatCannotBeMadeIsCodeTwo) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto source = folder.write("source");
    folder.makeFolder("folder");
    for (const char* name : {"missing/partial", "folder"}) {
        const auto partial = folder / name;
        EXPECT_EQ(errorOf(bufferedCopy(fileSystem, source, partial)),
                  (Error{"Vellomar", 2, "Cannot open destination: " + partial}));
    }
    EXPECT_TRUE(fs::is_directory(folder / "folder"));
}

TEST(BufferedCopy, NeverReplacesItsOwnSource) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto source = folder.write("source", "pixels");
    fs::create_hard_link(source, folder / "hard");
    fs::create_symlink(source, folder / "soft");
    for (const char* name : {"source", "hard", "soft"}) {
        const auto copied = bufferedCopy(fileSystem, source, folder / name);
        ASSERT_FALSE(copied.has_value()) << name;
        EXPECT_EQ(copied.error().code, 2) << name;
    }
    EXPECT_EQ(contentOf(source), "pixels");
    EXPECT_EQ(contentOf(folder / "hard"), "pixels");
}

TEST(BufferedCopy, AFailedReadIsToldInTheKernelsTerms) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.makeFolder("source");
    const auto copied = bufferedCopy(fileSystem, folder / "source", folder / "partial");
    EXPECT_EQ(errorOf(copied), systemError(EISDIR));
    EXPECT_TRUE(exists(folder / "partial"));  // the caller's to remove
}

}  // namespace
}  // namespace vellomar
