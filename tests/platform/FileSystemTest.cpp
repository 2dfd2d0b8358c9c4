#include <cerrno>
#include <filesystem>

#include <gtest/gtest.h>

#include "platform/FileSystem.h"
#include "platform/LinuxFileSystem.h"
#include "support/ScopedOrdinaryUser.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::ScopedOrdinaryUser;
using testing::TemporaryFolder;

TEST(FileSystem, WhateverHasANameStandsThere) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.makeFolder("folder");
    fs::create_symlink(folder / "nowhere", folder / "dangling");
    EXPECT_TRUE(somethingStandsAt(fileSystem, folder.write("file")));
    EXPECT_TRUE(somethingStandsAt(fileSystem, folder / "folder"));
    EXPECT_TRUE(somethingStandsAt(fileSystem, folder / "dangling"));
    EXPECT_FALSE(somethingStandsAt(fileSystem, folder / "nowhere"));
    EXPECT_FALSE(somethingStandsAt(fileSystem, folder / "file/below"));
    EXPECT_FALSE(somethingStandsAt(fileSystem, folder / std::string(256, 'n')));
}

TEST(FileSystem, KnowsOneFileByItsOtherPaths) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto file = folder.write("a/file", "same");
    const auto other = folder.write("a/other", "same");
    fs::create_hard_link(file, folder / "hard");
    fs::create_symlink(file, folder / "soft");
    fs::create_symlink(folder / "nowhere", folder / "dangling");
    EXPECT_TRUE(isSameFile(fileSystem, file, file));
    EXPECT_TRUE(isSameFile(fileSystem, file, folder / "hard"));
    EXPECT_TRUE(isSameFile(fileSystem, folder / "soft", file));
    EXPECT_TRUE(isSameFile(fileSystem, file, folder / "a/../a//file"));
    EXPECT_FALSE(isSameFile(fileSystem, file, other));
    EXPECT_FALSE(isSameFile(fileSystem, file, folder / "missing"));
    EXPECT_FALSE(isSameFile(fileSystem, folder / "missing", folder / "missing"));
    EXPECT_FALSE(isSameFile(fileSystem, folder / "dangling", folder / "dangling"));
}

TEST(FileSystem, MakesAllFoldersThatLeadToAFolder) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    EXPECT_TRUE(makeDirectories(fileSystem, folder / "2024"));
    EXPECT_TRUE(makeDirectories(fileSystem, folder / "2024/06 - June/br\xFC"
                                                     "cke"));
    EXPECT_TRUE(fs::is_directory(folder / "2024/06 - June/br\xFC"
                                          "cke"));
}

TEST(FileSystem, AFolderThatStandsAlreadyIsASuccess) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.write("a/b/photo.jpg", "pixels");
    EXPECT_TRUE(makeDirectories(fileSystem, folder / "a/b"));
    EXPECT_TRUE(makeDirectories(fileSystem, "/"));
    EXPECT_EQ(testing::contentOf(folder / "a/b/photo.jpg"), "pixels");
}

TEST(FileSystem, TrailingAndDoubledSlashesAreNoTrouble) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    EXPECT_TRUE(makeDirectories(fileSystem, folder / "a/b/"));
    EXPECT_TRUE(makeDirectories(fileSystem, folder / "c//d//"));
    EXPECT_TRUE(fs::is_directory(folder / "a/b"));
    EXPECT_TRUE(fs::is_directory(folder / "c/d"));
    EXPECT_TRUE(makeDirectories(fileSystem, folder / "a/b/"));
}

TEST(FileSystem, ASymlinkToAFolderServesAsOne) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.makeFolder("real");
    fs::create_directory_symlink(folder / "real", folder / "link");
    EXPECT_TRUE(makeDirectories(fileSystem, folder / "link"));
    EXPECT_TRUE(makeDirectories(fileSystem, folder / "link/below"));
    EXPECT_TRUE(fs::is_directory(folder / "real/below"));
}

TEST(FileSystem, WhatIsInTheWayOfAFolderStays) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.write("file", "pixels");
    fs::create_symlink(folder / "nowhere", folder / "dangling");
    for (const char* path : {"file", "file/below", "file/far/below", "dangling", "dangling/below"}) {
        SCOPED_TRACE(path);
        EXPECT_FALSE(makeDirectories(fileSystem, folder / path));
    }
    EXPECT_EQ(testing::contentOf(folder / "file"), "pixels");
    EXPECT_TRUE(fs::is_symlink(folder / "dangling"));
    EXPECT_FALSE(testing::exists(folder / "nowhere"));
}

TEST(FileSystem, FoldersMadeBeforeAFailureStay) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto made = makeDirectories(fileSystem, folder / ("a/b/" + std::string(256, 'n')));
    ASSERT_FALSE(made.has_value());
    EXPECT_EQ(made.error().code, ENAMETOOLONG);
    EXPECT_TRUE(fs::is_directory(folder / "a/b"));
}

TEST(FileSystem, AFolderThatMayNotBeWrittenTakesNoFolders) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const ScopedOrdinaryUser user(folder.path());
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    const auto made = makeDirectories(fileSystem, folder / "a/b");
    fs::permissions(folder.path(), fs::perms::owner_all);
    ASSERT_FALSE(made.has_value());
    EXPECT_EQ(made.error().code, EACCES);
}

}  // namespace
}  // namespace vellomar
