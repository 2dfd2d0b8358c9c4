#include <array>
#include <cerrno>
#include <filesystem>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/LinuxFileSystem.h"
#include "support/ScopedOrdinaryUser.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::contentOf;
using testing::exists;
using testing::ScopedOrdinaryUser;
using testing::TemporaryFolder;

// What the kernel called the failure; 0 for a success.
template <typename T>
int errorOf(const Expected<T>& result) {
    return result ? 0 : result.error().code;
}

class LinuxFileSystemTest : public ::testing::Test {
protected:
    LinuxFileSystem fileSystem;
    TemporaryFolder folder;
};

TEST_F(LinuxFileSystemTest, TellsTypeAndSize) {
    const auto file = folder.write("file", "12345");
    folder.makeFolder("folder");
    fs::create_symlink(file, folder / "link");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    const auto status = fileSystem.status(file);
    ASSERT_TRUE(status.has_value());
    EXPECT_EQ(status->type, FileType::regular);
    EXPECT_EQ(status->size, 5);
    EXPECT_EQ(fileSystem.status(folder / "folder").value().type, FileType::directory);
    EXPECT_EQ(fileSystem.status(folder / "pipe").value().type, FileType::other);
    EXPECT_EQ(errorOf(fileSystem.status(folder / "missing")), ENOENT);
    EXPECT_EQ(errorOf(fileSystem.status(folder / "file/below")), ENOTDIR);
}

TEST_F(LinuxFileSystemTest, ASymlinkIsSeenItselfOrFollowedAsAsked) {
    const auto file = folder.write("file", "12345");
    fs::create_symlink(file, folder / "link");
    fs::create_symlink(folder / "nowhere", folder / "dangling");
    fs::create_symlink(folder / "loop", folder / "loop");
    EXPECT_EQ(fileSystem.status(folder / "link").value().type, FileType::symlink);
    EXPECT_EQ(fileSystem.status(folder / "dangling").value().type, FileType::symlink);
    const auto followed = fileSystem.statusFollowingLinks(folder / "link");
    ASSERT_TRUE(followed.has_value());
    EXPECT_EQ(followed->type, FileType::regular);
    EXPECT_EQ(followed->identity, fileSystem.status(file).value().identity);
    EXPECT_EQ(errorOf(fileSystem.statusFollowingLinks(folder / "dangling")), ENOENT);
    EXPECT_EQ(errorOf(fileSystem.statusFollowingLinks(folder / "loop")), ELOOP);
}

TEST_F(LinuxFileSystemTest, HardLinksAreOneIdentityAndCopiesAreTwo) {
    const auto file = folder.write("file", "same");
    const auto other = folder.write("other", "same");
    fs::create_hard_link(file, folder / "hard");
    const auto identity = fileSystem.status(file).value().identity;
    EXPECT_EQ(fileSystem.status(folder / "hard").value().identity, identity);
    EXPECT_FALSE(fileSystem.status(other).value().identity == identity);
}

TEST_F(LinuxFileSystemTest, NamesHoldAnyBytesUpToTheLongest) {
    for (const std::string& name : {std::string("br\xFC"
                                                "cke.jpg"),
                                    std::string("line\nbreak"), std::string(255, 'n')}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(errorOf(fileSystem.createFile(folder / name, NewFileAccess::usual)), 0);
        EXPECT_EQ(errorOf(fileSystem.status(folder / name)), 0);
        EXPECT_EQ(errorOf(fileSystem.removeFile(folder / name)), 0);
    }
}

TEST_F(LinuxFileSystemTest, ANameThatIsTooLongFailsEverywhere) {
    const auto path = folder / std::string(256, 'n');
    const auto file = folder.write("file");
    EXPECT_EQ(errorOf(fileSystem.status(path)), ENAMETOOLONG);
    EXPECT_EQ(errorOf(fileSystem.openForReading(path, true)), ENAMETOOLONG);
    EXPECT_EQ(errorOf(fileSystem.createFile(path, NewFileAccess::usual)), ENAMETOOLONG);
    EXPECT_EQ(errorOf(fileSystem.makeDirectory(path)), ENAMETOOLONG);
    EXPECT_EQ(errorOf(fileSystem.rename(file, path)), ENAMETOOLONG);
    EXPECT_EQ(errorOf(fileSystem.renameWithoutReplacing(file, path)), ENAMETOOLONG);
    EXPECT_TRUE(exists(file));
}

TEST_F(LinuxFileSystemTest, OpensFoldersAloneForListing) {
    folder.makeFolder("folder");
    fs::create_directory_symlink(folder / "folder", folder / "link");
    EXPECT_EQ(errorOf(fileSystem.openDirectory(folder / "folder", false)), 0);
    EXPECT_EQ(errorOf(fileSystem.openDirectory(folder / "link", true)), 0);
    EXPECT_NE(errorOf(fileSystem.openDirectory(folder / "link", false)), 0);
    EXPECT_EQ(errorOf(fileSystem.openDirectory(folder.write("file"), true)), ENOTDIR);
    EXPECT_EQ(errorOf(fileSystem.openDirectory(folder / "missing", true)), ENOENT);
}

TEST_F(LinuxFileSystemTest, ReadsInPiecesToTheEnd) {
    const auto file = fileSystem.openForReading(folder.write("file", "12345"), false);
    ASSERT_TRUE(file.has_value());
    std::array<std::byte, 3> buffer{};
    EXPECT_EQ((*file)->read(buffer), 3U);
    EXPECT_EQ(buffer[0], std::byte{'1'});
    EXPECT_EQ((*file)->read(buffer), 2U);
    EXPECT_EQ(buffer[0], std::byte{'4'});
    EXPECT_EQ((*file)->read(buffer), 0U);
    EXPECT_EQ((*file)->read(buffer), 0U);
    EXPECT_EQ((*file)->status().value().size, 5);
}

TEST_F(LinuxFileSystemTest, ReadsThroughASymlinkOnlyWhenAsked) {
    fs::create_symlink(folder.write("file"), folder / "link");
    EXPECT_EQ(errorOf(fileSystem.openForReading(folder / "link", true)), 0);
    EXPECT_EQ(errorOf(fileSystem.openForReading(folder / "link", false)), ELOOP);
    EXPECT_EQ(errorOf(fileSystem.openForReading(folder / "missing", true)), ENOENT);
}

TEST_F(LinuxFileSystemTest, APipeDoesNotHoldAReaderUp) {
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    const auto pipe = fileSystem.openForReading(folder / "pipe", true);
    ASSERT_TRUE(pipe.has_value());
    std::array<std::byte, 3> buffer{};
    EXPECT_EQ((*pipe)->read(buffer), 0U);
}

TEST_F(LinuxFileSystemTest, ANewFileTakesNoOnesPlace) {
    const auto file = folder.write("file", "old");
    folder.makeFolder("folder");
    fs::create_symlink(file, folder / "link");
    fs::create_symlink(folder / "nowhere", folder / "dangling");
    for (const char* name : {"file", "folder", "link", "dangling"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(errorOf(fileSystem.createFile(folder / name, NewFileAccess::usual)), EEXIST);
    }
    EXPECT_EQ(contentOf(file), "old");
    EXPECT_FALSE(exists(folder / "nowhere"));
}

TEST_F(LinuxFileSystemTest, ANewFileIsTheOwnersOrAsTheUmaskAllows) {
    const auto before = umask(0022);
    EXPECT_EQ(errorOf(fileSystem.createFile(folder / "owners", NewFileAccess::owner)), 0);
    EXPECT_EQ(errorOf(fileSystem.createFile(folder / "usual", NewFileAccess::usual)), 0);
    EXPECT_EQ(errorOf(fileSystem.makeDirectory(folder / "folder")), 0);
    umask(before);
    EXPECT_EQ(fs::status(folder / "owners").permissions(), fs::perms{0600});
    EXPECT_EQ(fs::status(folder / "usual").permissions(), fs::perms{0644});
    EXPECT_EQ(fs::status(folder / "folder").permissions(), fs::perms{0755});
}

TEST_F(LinuxFileSystemTest, WritesSyncsAndDropsFromTheCache) {
    const auto file = fileSystem.createFile(folder / "file", NewFileAccess::usual);
    ASSERT_TRUE(file.has_value());
    EXPECT_EQ((*file)->write(std::as_bytes(std::span(std::string_view("12345")))), 5U);
    EXPECT_EQ(errorOf((*file)->sync()), 0);
    EXPECT_EQ(errorOf((*file)->dropCache()), 0);
    EXPECT_EQ(contentOf(folder / "file"), "12345");
}

TEST_F(LinuxFileSystemTest, RenamingReplacesFilesAndNoFolders) {
    const auto from = folder.write("from", "new");
    const auto to = folder.write("to", "old");
    EXPECT_EQ(errorOf(fileSystem.rename(from, to)), 0);
    EXPECT_EQ(contentOf(to), "new");
    EXPECT_FALSE(exists(from));
    folder.makeFolder("folder");
    EXPECT_EQ(errorOf(fileSystem.rename(to, folder / "folder")), EISDIR);
    EXPECT_EQ(errorOf(fileSystem.rename(folder / "missing", to)), ENOENT);
    EXPECT_EQ(contentOf(to), "new");
}

TEST_F(LinuxFileSystemTest, RenamingWithoutReplacingGoesToAFreeName) {
    const auto from = folder.write("from", "pixels");
    folder.makeFolder("folder");
    EXPECT_EQ(errorOf(fileSystem.renameWithoutReplacing(from, folder / "folder/to")), 0);
    EXPECT_FALSE(exists(from));
    EXPECT_EQ(contentOf(folder / "folder/to"), "pixels");
    EXPECT_EQ(errorOf(fileSystem.renameWithoutReplacing(from, folder / "other")), ENOENT);
}

TEST_F(LinuxFileSystemTest, RenamingWithoutReplacingSparesWhateverStandsThere) {
    const auto from = folder.write("from", "new");
    const auto file = folder.write("file", "old");
    folder.makeFolder("folder");
    fs::create_symlink(file, folder / "link");
    fs::create_symlink(folder / "nowhere", folder / "dangling");
    for (const char* name : {"file", "folder", "link", "dangling", "from"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(errorOf(fileSystem.renameWithoutReplacing(from, folder / name)), EEXIST);
        EXPECT_EQ(contentOf(from), "new");
    }
    EXPECT_EQ(contentOf(file), "old");
    EXPECT_TRUE(fs::is_symlink(folder / "dangling"));
}

TEST_F(LinuxFileSystemTest, RemovesFilesAndSymlinksButNoFolders) {
    const auto file = folder.write("file");
    folder.makeFolder("folder");
    fs::create_symlink(folder / "folder", folder / "link");
    EXPECT_EQ(errorOf(fileSystem.removeFile(folder / "link")), 0);
    EXPECT_EQ(errorOf(fileSystem.removeFile(file)), 0);
    EXPECT_NE(errorOf(fileSystem.removeFile(folder / "folder")), 0);
    EXPECT_EQ(errorOf(fileSystem.removeFile(file)), ENOENT);
    EXPECT_FALSE(exists(file));
    EXPECT_FALSE(exists(folder / "link"));
    EXPECT_TRUE(exists(folder / "folder"));
}

TEST_F(LinuxFileSystemTest, RemovesFoldersWithNothingInThem) {
    folder.makeFolder("outer/inner");
    folder.write("visible/file");
    folder.write("hidden/.file");
    const auto file = folder.write("file");
    fs::create_directory_symlink(folder / "outer/inner", folder / "link");
    EXPECT_EQ(errorOf(fileSystem.removeDirectory(folder / "outer")), ENOTEMPTY);
    EXPECT_EQ(errorOf(fileSystem.removeDirectory(folder / "visible")), ENOTEMPTY);
    EXPECT_EQ(errorOf(fileSystem.removeDirectory(folder / "hidden")), ENOTEMPTY);
    EXPECT_EQ(errorOf(fileSystem.removeDirectory(folder / "link")), ENOTDIR);
    EXPECT_EQ(errorOf(fileSystem.removeDirectory(folder / "link/")), ENOTDIR);
    EXPECT_EQ(errorOf(fileSystem.removeDirectory(file)), ENOTDIR);
    EXPECT_TRUE(exists(file));
    EXPECT_TRUE(exists(folder / "hidden/.file"));
    EXPECT_EQ(errorOf(fileSystem.removeDirectory(folder / "outer/inner")), 0);
    EXPECT_EQ(errorOf(fileSystem.removeDirectory(folder / "outer")), 0);
    EXPECT_FALSE(exists(folder / "outer"));
    EXPECT_EQ(errorOf(fileSystem.removeDirectory(folder / "outer")), ENOENT);
}

TEST_F(LinuxFileSystemTest, MakesOneFolderBelowOneThatStands) {
    EXPECT_EQ(errorOf(fileSystem.makeDirectory(folder / "new")), 0);
    EXPECT_TRUE(fs::is_directory(folder / "new"));
    EXPECT_EQ(errorOf(fileSystem.makeDirectory(folder / "new")), EEXIST);
    EXPECT_EQ(errorOf(fileSystem.makeDirectory(folder / "missing/new")), ENOENT);
}

TEST_F(LinuxFileSystemTest, SyncsFoldersAlone) {
    EXPECT_EQ(errorOf(fileSystem.syncDirectory(folder.path())), 0);
    EXPECT_EQ(errorOf(fileSystem.syncDirectory("/proc")), 0);  // which has nothing to sync
    EXPECT_EQ(errorOf(fileSystem.syncDirectory(folder.write("file"))), ENOTDIR);
    EXPECT_EQ(errorOf(fileSystem.syncDirectory(folder / "missing")), ENOENT);
}

TEST_F(LinuxFileSystemTest, SetsTheModificationDateToTheMicrosecond) {
    const auto file = folder.write("file");
    for (const std::int64_t micros : {1'718'358'067'123'456, 0L, 999'999L, -1L, -86'400'000'000L, -86'399'250'000L}) {
        SCOPED_TRACE(micros);
        const Instant date{std::chrono::microseconds(micros)};
        EXPECT_EQ(errorOf(fileSystem.setModificationDate(file, date)), 0);
        EXPECT_EQ(fileSystem.status(file).value().modified, date);
    }
    EXPECT_EQ(errorOf(fileSystem.setModificationDate(folder / "missing", Instant())), ENOENT);
}

TEST_F(LinuxFileSystemTest, SettingTheModificationDateLeavesTheTimeOfAccess) {
    const auto file = folder.write("file");
    const std::array<timespec, 2> times = {timespec{1'500'000'000, 42}, timespec{1'500'000'000, 42}};
    ASSERT_EQ(utimensat(AT_FDCWD, file.c_str(), times.data(), 0), 0);
    EXPECT_EQ(errorOf(fileSystem.setModificationDate(file, instantFromUnixSeconds(std::int64_t{7}))), 0);
    struct stat status {};
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_atim.tv_sec, 1'500'000'000);
    EXPECT_EQ(status.st_atim.tv_nsec, 42);
}

TEST_F(LinuxFileSystemTest, TellsWhatTheUserMayDo) {
    const auto open = folder.write("open");
    const auto readOnly = folder.write("readOnly");
    const auto closed = folder.write("closed");
    fs::permissions(open, fs::perms{0666});
    fs::permissions(readOnly, fs::perms{0444});
    fs::permissions(closed, fs::perms::none);
    const auto program = folder.write("program");
    fs::permissions(program, fs::perms{0755});
    const ScopedOrdinaryUser user(folder.path());
    EXPECT_EQ(errorOf(fileSystem.checkAccess(program, Access::execute)), 0);
    EXPECT_EQ(errorOf(fileSystem.checkAccess(open, Access::execute)), EACCES);
    EXPECT_EQ(errorOf(fileSystem.checkAccess(open, Access::read)), 0);
    EXPECT_EQ(errorOf(fileSystem.checkAccess(open, Access::write)), 0);
    EXPECT_EQ(errorOf(fileSystem.checkAccess(readOnly, Access::read)), 0);
    EXPECT_EQ(errorOf(fileSystem.checkAccess(readOnly, Access::write)), EACCES);
    EXPECT_EQ(errorOf(fileSystem.checkAccess(closed, Access::read)), EACCES);
    EXPECT_EQ(errorOf(fileSystem.checkAccess(closed, Access::write)), EACCES);
    EXPECT_EQ(errorOf(fileSystem.checkAccess(folder / "missing", Access::read)), ENOENT);
    EXPECT_EQ(errorOf(fileSystem.openForReading(closed, true)), EACCES);
}

}  // namespace
}  // namespace vellomar
