#include <algorithm>
#include <cerrno>
#include <iterator>

#include <gmock/gmock.h>
#include <unistd.h>

#include "platform/LinuxFileSystem.h"
#include "support/ForwardingFileSystem.h"
#include "support/TemporaryFolder.h"
#include "tools/ShiftableFiles.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

class ShiftableFilesTest : public ::testing::Test {
protected:
    // Below the folder of the test; counted and collected, which must agree.
    std::vector<std::string> filesOf(const std::vector<std::string>& folders) {
        auto paths = collectShiftableFiles(fileSystem, folders);
        EXPECT_EQ(countShiftableFiles(fileSystem, folders).files, paths.size());
        for (auto& path : paths)
            if (path.starts_with(folder.path() + "/")) path.erase(0, folder.path().size() + 1);
        return paths;
    }

    testing::TemporaryFolder folder;
    LinuxFileSystem fileSystem;
};

TEST_F(ShiftableFilesTest, AreAllImagesAndVideosByTheirExtensions) {
    constexpr const char* kExtensions[] = {"jpg", "jpeg", "png",  "tif", "tiff", "bmp", "webp", "heic", "heif", "avif",
                                           "arw", "cr2",  "cr3",  "nef", "nrw",  "orf", "raf",  "rw2",  "dng",  "raw",
                                           "rwl", "srw",  "x3f",  "3fr", "mef",  "mos", "mrw",  "ptx",  "pef",  "srf",
                                           "sr2", "kdc",  "dcr",  "erf", "fff",  "iiq", "rwz",  "mp4",  "mov",  "avi",
                                           "mkv", "mts",  "m2ts", "3gp", "m4v",  "wmv", "flv",  "webm", "mpg",  "mpeg"};
    static_assert(std::size(kExtensions) == 37 + 13);
    for (const std::string extension : kExtensions)
        folder.write("a." + extension);
    for (const char* const other : {"a.txt", "a.xmp", "a.jpg_exiftool_tmp", "jpg", ".jpg", "a.", "a.jpg~"})
        folder.write(other);
    const auto files = filesOf({folder.path()});
    EXPECT_THAT(files, SizeIs(37 + 13));
    for (const std::string extension : kExtensions)
        EXPECT_THAT(files, ::testing::Contains("a." + extension));
}

TEST_F(ShiftableFilesTest, MayHaveTheirExtensionsInAnyCase) {
    folder.write("A.JPG");
    folder.write("b.Cr2");
    EXPECT_THAT(filesOf({folder.path()}), UnorderedElementsAre("A.JPG", "b.Cr2"));
}

TEST_F(ShiftableFilesTest, MayBeHiddenOrLieInHiddenFoldersAndPackages) {
    folder.write(".a.jpg");
    folder.write(".hidden/b.jpg");
    folder.write("Library.photoslibrary/originals/c.jpg");
    folder.write("deep/er/d.mov");
    EXPECT_THAT(
        filesOf({folder.path()}),
        UnorderedElementsAre(".a.jpg", ".hidden/b.jpg", "Library.photoslibrary/originals/c.jpg", "deep/er/d.mov"));
}

TEST_F(ShiftableFilesTest, AreNeitherFoldersNorSymlinksNorWhatSymlinksLeadTo) {
    const testing::TemporaryFolder elsewhere;
    elsewhere.write("secret.jpg");
    folder.makeFolder("folder.jpg");
    ASSERT_EQ(symlink((elsewhere / "secret.jpg").c_str(), (folder / "link.jpg").c_str()), 0);
    ASSERT_EQ(symlink(elsewhere.path().c_str(), (folder / "folder link").c_str()), 0);
    EXPECT_THAT(filesOf({folder.path()}), IsEmpty());
}

TEST_F(ShiftableFilesTest, ComeFolderByFolder) {
    folder.write("a/1.jpg");
    folder.write("b/2.jpg");
    EXPECT_THAT(filesOf({folder / "b", folder / "a"}), ElementsAre("b/2.jpg", "a/1.jpg"));
}

TEST_F(ShiftableFilesTest, CountOnceWhereOneFolderLiesInTheOther) {
    folder.write("top.jpg");
    folder.write("in/a.jpg");
    folder.write("in/deeper/b.jpg");
    EXPECT_THAT(filesOf({folder.path(), folder / "in"}),
                UnorderedElementsAre("top.jpg", "in/a.jpg", "in/deeper/b.jpg"));
    EXPECT_THAT(filesOf({folder / "in/deeper", folder / "in", folder.path()}),
                UnorderedElementsAre("top.jpg", "in/a.jpg", "in/deeper/b.jpg"));
}

TEST_F(ShiftableFilesTest, CountOnceWhereOneFolderIsNamedInSeveralWays) {
    folder.write("in/a.jpg");
    ASSERT_EQ(symlink((folder / "in").c_str(), (folder / "link").c_str()), 0);
    EXPECT_THAT(filesOf({folder / "in", folder / "in/", folder / "in/../in", folder / "link"}),
                ElementsAre("in/a.jpg"));
}

TEST_F(ShiftableFilesTest, CountByNameWhereAFileHasTwo) {
    folder.write("a.jpg");
    ASSERT_EQ(link((folder / "a.jpg").c_str(), (folder / "b.jpg").c_str()), 0);
    EXPECT_THAT(filesOf({folder.path()}), UnorderedElementsAre("a.jpg", "b.jpg"));
}

TEST_F(ShiftableFilesTest, OfFoldersThatCannotBeListedAreNone) {
    folder.write("in/a.jpg");
    const auto file = folder.write("file.jpg");
    const std::vector<std::string> folders = {folder / "missing", file, "", "in", folder / "in"};
    EXPECT_THAT(filesOf(folders), ElementsAre("in/a.jpg"));
    const auto refused = countShiftableFiles(fileSystem, folders).refused;
    ASSERT_THAT(refused, SizeIs(4));
    EXPECT_TRUE(isSystemError(refused.at(folder / "missing"), ENOENT));
    EXPECT_TRUE(isSystemError(refused.at(file), ENOTDIR));
    EXPECT_TRUE(isSystemError(refused.at(""), EINVAL));
    EXPECT_TRUE(isSystemError(refused.at("in"), EINVAL));
}

TEST_F(ShiftableFilesTest, AreNotLookedForWhereAPathMeansAnotherToTheKernel) {
    folder.write("in/a.jpg");
    const auto cutOff = folder / "in" + std::string("\0/b", 3);
    EXPECT_THAT(filesOf({cutOff}), IsEmpty());
    EXPECT_TRUE(isSystemError(countShiftableFiles(fileSystem, {cutOff}).refused.at(cutOff), EINVAL));
}

// Asks for the end of the walk when the first folder is listed.
class StopOnOpening final : public testing::ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<std::unique_ptr<Directory>> openDirectory(const std::string& path, bool follow) override {
        ++opened;
        stop.request_stop();
        return real().openDirectory(path, follow);
    }

    std::stop_source stop;
    int opened = 0;
};

TEST_F(ShiftableFilesTest, AreNotLookedForAnyLongerWhenAskedToStop) {
    folder.write("in/a.jpg");
    folder.write("in/deeper/b.jpg");
    folder.write("other/c.jpg");
    StopOnOpening stopping(fileSystem);
    const auto count = countShiftableFiles(stopping, {folder / "in", folder / "other"}, stopping.stop.get_token());
    EXPECT_EQ(count.files, 0);
    EXPECT_EQ(stopping.opened, 1);
}

}  // namespace
}  // namespace vellomar
