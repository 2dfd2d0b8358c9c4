#include <cerrno>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/AtomicWrite.h"
#include "platform/LinuxFileSystem.h"
#include "platform/Path.h"
#include "support/ScopedOrdinaryUser.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::contentOf;
using ::testing::ElementsAre;
using testing::ScopedOrdinaryUser;
using testing::TemporaryFolder;

std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename());
    return names;
}

TEST(AtomicWrite, MakesANewFile) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const std::string content("two\nlines\0and a NUL", 19);
    EXPECT_TRUE(writeAtomically(fileSystem, folder / "plan.csv", content));
    EXPECT_EQ(contentOf(folder / "plan.csv"), content);
    EXPECT_THAT(namesIn(folder.path()), ElementsAre("plan.csv"));
}

TEST(AtomicWrite, ReplacesAFile) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto path = folder.write("plan.csv", "a long old content");
    EXPECT_TRUE(writeAtomically(fileSystem, path, "new"));
    EXPECT_EQ(contentOf(path), "new");
    EXPECT_TRUE(writeAtomically(fileSystem, path, ""));
    EXPECT_EQ(contentOf(path), "");
    EXPECT_THAT(namesIn(folder.path()), ElementsAre("plan.csv"));
}

TEST(AtomicWrite, ReplacesASymlinkAndNotWhatItLeadsTo) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto photo = folder.write("photo.jpg", "pixels");
    fs::create_symlink(photo, folder / "plan.csv");
    EXPECT_TRUE(writeAtomically(fileSystem, folder / "plan.csv", "new"));
    EXPECT_EQ(contentOf(photo), "pixels");
    EXPECT_FALSE(fs::is_symlink(folder / "plan.csv"));
}

TEST(AtomicWrite, ANameOfFullLengthIsNoTrouble) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto path = folder / std::string(255, 'n');
    EXPECT_TRUE(writeAtomically(fileSystem, path, "new"));
    EXPECT_EQ(contentOf(path), "new");
}

TEST(AtomicWrite, ANewFileMayBeReadAsTheUmaskAllows) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    for (const mode_t mask : {0022U, 0077U, 0002U}) {
        SCOPED_TRACE(mask);
        const auto before = umask(mask);
        EXPECT_TRUE(writeAtomically(fileSystem, folder / "file", "new"));
        umask(before);
        struct stat status {};
        ASSERT_EQ(stat((folder / "file").c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0666U & ~mask);
    }
}

TEST(AtomicWrite, TheOldFileStaysWhereNothingCanBeMade) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto path = folder.write("plan.csv", "old");
    {
        const ScopedOrdinaryUser user(folder.path());
        fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
        const auto written = writeAtomically(fileSystem, path, "new");
        fs::permissions(folder.path(), fs::perms::owner_all);
        ASSERT_FALSE(written.has_value());
        EXPECT_EQ(written.error().code, EACCES);
    }
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_THAT(namesIn(folder.path()), ElementsAre("plan.csv"));
}

TEST(AtomicWrite, AFolderIsNotReplaced) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.write("plan.csv/photo.jpg", "pixels");
    EXPECT_FALSE(writeAtomically(fileSystem, folder / "plan.csv", "new"));
    EXPECT_EQ(contentOf(folder / "plan.csv/photo.jpg"), "pixels");
    EXPECT_THAT(namesIn(folder.path()), ElementsAre("plan.csv"));
}

TEST(AtomicWrite, AMissingFolderIsNotMade) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto written = writeAtomically(fileSystem, folder / "missing/plan.csv", "new");
    ASSERT_FALSE(written.has_value());
    EXPECT_EQ(written.error().code, ENOENT);
    EXPECT_THAT(namesIn(folder.path()), ElementsAre());
}

}  // namespace
}  // namespace vellomar
