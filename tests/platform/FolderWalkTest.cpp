#include <algorithm>
#include <filesystem>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/FolderWalk.h"
#include "platform/LinuxFileSystem.h"
#include "support/ForwardingFileSystem.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;
using ::testing::UnorderedElementsAre;

std::vector<std::string> pathsBelow(FileSystem& fileSystem, const std::string& source,
                                    const FolderWalkOptions& options = {}) {
    std::vector<std::string> paths;
    auto walk = FolderWalk::open(fileSystem, source, {}, options);
    EXPECT_TRUE(walk);
    if (!walk) return paths;
    while (const auto entry = walk->next())
        paths.push_back(entry->path().substr(source.size() + 1));
    return paths;
}

std::vector<std::string> pathsBelow(const std::string& source) {
    LinuxFileSystem fileSystem;
    return pathsBelow(fileSystem, source);
}

TEST(FolderWalk, TellsFoldersAndWhatLiesInThem) {
    const TemporaryFolder folder;
    folder.write("a.jpg");
    folder.write("sub/b.jpg");
    folder.write("sub/deeper/c.jpg");
    EXPECT_THAT(pathsBelow(folder.path()),
                UnorderedElementsAre("a.jpg", "sub", "sub/b.jpg", "sub/deeper", "sub/deeper/c.jpg"));
}

TEST(FolderWalk, PassesOverHiddenNamesAndAllBelowThem) {
    const TemporaryFolder folder;
    folder.write(".hidden.jpg");
    folder.write(".hidden/a.jpg");
    folder.write("seen.jpg");
    EXPECT_THAT(pathsBelow(folder.path()), ElementsAre("seen.jpg"));
}

TEST(FolderWalk, TellsHiddenNamesAndAllBelowThemWhenAskedFor) {
    const TemporaryFolder folder;
    folder.write(".hidden.jpg");
    folder.write(".hidden/.a.jpg");
    folder.write("seen.jpg");
    LinuxFileSystem fileSystem;
    EXPECT_THAT(pathsBelow(fileSystem, folder.path(), {.withHiddenNames = true}),
                UnorderedElementsAre(".hidden.jpg", ".hidden", ".hidden/.a.jpg", "seen.jpg"));
}

TEST(FolderWalk, LeavesOutWhatAWalkBeforeItHasEntered) {
    const TemporaryFolder folder;
    folder.write("a.jpg");
    folder.write("sub/b.jpg");
    folder.write("sub/deeper/c.jpg");
    LinuxFileSystem fileSystem;
    EnteredFolders entered;
    const FolderWalkOptions options = {.withHiddenNames = false, .entered = &entered};
    EXPECT_THAT(pathsBelow(fileSystem, folder / "sub/deeper", options), ElementsAre("c.jpg"));
    EXPECT_THAT(pathsBelow(fileSystem, folder / "sub/../sub/deeper", options), IsEmpty());
    EXPECT_THAT(pathsBelow(fileSystem, folder.path(), options),
                UnorderedElementsAre("a.jpg", "sub", "sub/b.jpg", "sub/deeper"));
    EXPECT_THAT(pathsBelow(fileSystem, folder / "sub", options), IsEmpty());
}

TEST(FolderWalk, TellsSymlinksButFollowsNone) {
    const TemporaryFolder folder;
    const TemporaryFolder elsewhere;
    elsewhere.write("secret.jpg");
    ASSERT_EQ(symlink(elsewhere.path().c_str(), (folder / "link").c_str()), 0);
    ASSERT_EQ(symlink(folder.path().c_str(), (folder / "loop").c_str()), 0);
    EXPECT_THAT(pathsBelow(folder.path()), UnorderedElementsAre("link", "loop"));
}

TEST(FolderWalk, FollowsASymlinkThatTheUserNamed) {
    const TemporaryFolder folder;
    folder.write("real/a.jpg");
    ASSERT_EQ(symlink((folder / "real").c_str(), (folder / "link").c_str()), 0);
    EXPECT_THAT(pathsBelow(folder / "link"), ElementsAre("a.jpg"));
}

TEST(FolderWalk, ListsAFolderLargerThanItsBuffer) {
    const TemporaryFolder folder;
    constexpr int kFiles = 5'000;
    for (int i = 0; i < kFiles; ++i)
        folder.write("a rather long name that fills the buffer soon " + std::to_string(i), "");
    auto paths = pathsBelow(folder.path());
    EXPECT_EQ(paths.size(), kFiles);
    std::ranges::sort(paths);
    EXPECT_EQ(std::ranges::adjacent_find(paths), paths.end());
}

TEST(FolderWalk, RefusesWhatIsNoFolder) {
    const TemporaryFolder folder;
    LinuxFileSystem fileSystem;
    EXPECT_FALSE(FolderWalk::open(fileSystem, folder / "missing"));
    EXPECT_FALSE(FolderWalk::open(fileSystem, folder.write("file.jpg")));
    EXPECT_FALSE(FolderWalk::open(fileSystem, ""));
}

// Pretends that the file system does not tell types in listings, as some do not.
class TypelessFileSystem final : public testing::ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<std::unique_ptr<Directory>> openDirectory(const std::string& path, bool follow) override {
        auto opened = real().openDirectory(path, follow);
        if (!opened) return opened;
        return std::make_unique<Typeless>(std::move(*opened));
    }

private:
    class Typeless final : public Directory {
    public:
        explicit Typeless(std::unique_ptr<Directory> folder) : folder_(std::move(folder)) {}
        [[nodiscard]] Expected<std::optional<Entry>> next() override {
            auto entry = folder_->next();
            if (entry && *entry) (*entry)->type.reset();
            return entry;
        }
        [[nodiscard]] Expected<FileStatus> statusOf(const char* name) override { return folder_->statusOf(name); }
        [[nodiscard]] Expected<FileIdentity> identity() override { return folder_->identity(); }

    private:
        std::unique_ptr<Directory> folder_;
    };
};

TEST(FolderWalk, LooksAtEntriesWhoseTypeTheListingDoesNotTell) {
    const TemporaryFolder folder;
    folder.write("sub/a.jpg");
    ASSERT_EQ(symlink("sub", (folder / "link").c_str()), 0);
    LinuxFileSystem disk;
    TypelessFileSystem fileSystem(disk);
    EXPECT_THAT(pathsBelow(fileSystem, folder.path()), UnorderedElementsAre("sub", "sub/a.jpg", "link"));
}

// Pretends that a folder named "again" is the top folder, as a mounted loop would be.
class LoopingFileSystem final : public testing::ForwardingFileSystem {
public:
    LoopingFileSystem(FileSystem& real, std::string top) : ForwardingFileSystem(real), top_(std::move(top)) {}

    [[nodiscard]] Expected<std::unique_ptr<Directory>> openDirectory(const std::string& path, bool follow) override {
        ++opened;
        return real().openDirectory(path.ends_with("/again") ? top_ : path, follow);
    }

    int opened = 0;

private:
    std::string top_;
};

TEST(FolderWalk, EndsOnAFolderThatHoldsItself) {
    const TemporaryFolder folder;
    folder.write("a.jpg");
    folder.makeFolder("again");
    LinuxFileSystem disk;
    LoopingFileSystem fileSystem(disk, folder.path());
    EXPECT_THAT(pathsBelow(fileSystem, folder.path()), UnorderedElementsAre("a.jpg", "again"));
    EXPECT_EQ(fileSystem.opened, 2);
    EnteredFolders entered;
    EXPECT_THAT(pathsBelow(fileSystem, folder.path(), {.withHiddenNames = false, .entered = &entered}),
                UnorderedElementsAre("a.jpg", "again"));
}

TEST(FolderWalk, LeavesOutAFolderThatVanishedMeanwhile) {
    const TemporaryFolder folder;
    folder.write("a.jpg");
    folder.write("gone/b.jpg");
    LinuxFileSystem fileSystem;
    auto walk = FolderWalk::open(fileSystem, folder.path());
    ASSERT_TRUE(walk);
    ASSERT_TRUE(walk->next());
    ASSERT_TRUE(walk->next());
    std::filesystem::remove_all(folder / "gone");
    EXPECT_FALSE(walk->next());
}

// Asks the walk to stop at the n-th call to the disk, and counts all.
class StoppingFileSystem final : public testing::ForwardingFileSystem {
public:
    StoppingFileSystem(FileSystem& real, int call) : ForwardingFileSystem(real), stopAt_(call) {}

    [[nodiscard]] Expected<std::unique_ptr<Directory>> openDirectory(const std::string& path, bool follow) override {
        countCall();
        auto opened = real().openDirectory(path, follow);
        if (!opened) return opened;
        return std::make_unique<Counted>(*this, std::move(*opened));
    }

    [[nodiscard]] std::stop_token token() const { return source_.get_token(); }

    int calls = 0;

private:
    class Counted final : public Directory {
    public:
        Counted(StoppingFileSystem& owner, std::unique_ptr<Directory> folder)
            : owner_(owner), folder_(std::move(folder)) {}
        [[nodiscard]] Expected<std::optional<Entry>> next() override {
            owner_.countCall();
            return folder_->next();
        }
        [[nodiscard]] Expected<FileStatus> statusOf(const char* name) override { return folder_->statusOf(name); }
        [[nodiscard]] Expected<FileIdentity> identity() override { return folder_->identity(); }

    private:
        StoppingFileSystem& owner_;
        std::unique_ptr<Directory> folder_;
    };

    void countCall() {
        if (++calls == stopAt_) source_.request_stop();
    }

    int stopAt_;
    std::stop_source source_;
};

// Calls to the disk that a walk makes which is asked to stop at call number `call`.
int callsOfWalkStoppedAt(int call, const std::string& source) {
    LinuxFileSystem disk;
    StoppingFileSystem fileSystem(disk, call);
    auto walk = FolderWalk::open(fileSystem, source, fileSystem.token());
    EXPECT_TRUE(walk);
    while (walk && walk->next()) {
    }
    return fileSystem.calls;
}

TEST(FolderWalk, EndsBehindTheCallUnderWayWhenAskedToStop) {
    const TemporaryFolder folder;
    for (int i = 0; i < 5; ++i) {
        folder.makeFolder("empty" + std::to_string(i));
        folder.write(".hidden" + std::to_string(i));
        folder.write("file" + std::to_string(i));
    }
    // The top: opened, 15 entries and an end; then each of the five opened and at its end.
    constexpr int kCalls = 1 + 16 + 5 * 2;
    EXPECT_EQ(callsOfWalkStoppedAt(kCalls + 1, folder.path()), kCalls);
    for (int call = 1; call <= kCalls; ++call)
        EXPECT_EQ(callsOfWalkStoppedAt(call, folder.path()), call);
}

TEST(FolderWalk, GoesThroughATreeAsDeepAsAPathMayBe) {
    constexpr std::size_t kDeepest = 4'000;
    const TemporaryFolder folder;
    std::string relative;
    while (folder.path().size() + relative.size() + 12 < kDeepest)
        relative += relative.empty() ? "deep_folder" : "/deep_folder";
    folder.write(relative + "/a.jpg");
    const auto paths = pathsBelow(folder.path());
    ASSERT_FALSE(paths.empty());
    EXPECT_EQ(paths.back(), relative + "/a.jpg");
}

TEST(FolderWalk, EndsQuietlyInAnEmptyFolder) {
    const TemporaryFolder folder;
    EXPECT_THAT(pathsBelow(folder.path()), IsEmpty());
}

}  // namespace
}  // namespace vellomar
