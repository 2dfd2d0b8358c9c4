// Duplicates are removed, and photos never lost by it.
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <set>

#include <gmock/gmock.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include "engine/DuplicateRemoval.h"
#include "engine/RunFixture.h"
#include "platform/FileDigest.h"
#include "platform/Path.h"
#include "support/CallRecorder.h"
#include "support/FaultyFileSystem.h"
#include "support/ForwardingFileSystem.h"
#include "support/ScopedTimeZone.h"

namespace vellomar {
namespace {

using ::testing::Contains;
using testing::contentOf;
using ::testing::ElementsAre;
using testing::exists;
using testing::FaultyFileSystem;
using testing::ForwardingFileSystem;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

constexpr const char* kAllowed = "";

// Leads from one path to another before the disk is asked, so that two paths are one file.
class RedirectingFileSystem : public ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<FileStatus> status(const std::string& path) override { return real().status(onDisk(path)); }
    [[nodiscard]] Expected<FileStatus> statusFollowingLinks(const std::string& path) override {
        return real().statusFollowingLinks(onDisk(path));
    }
    [[nodiscard]] Expected<void> checkAccess(const std::string& path, Access access) override {
        return real().checkAccess(onDisk(path), access);
    }
    [[nodiscard]] Expected<std::unique_ptr<InputFile>> openForReading(const std::string& path, bool follow) override {
        return real().openForReading(onDisk(path), follow);
    }
    [[nodiscard]] Expected<std::unique_ptr<OutputFile>> createFile(const std::string& path,
                                                                   NewFileAccess access) override {
        return real().createFile(onDisk(path), access);
    }
    [[nodiscard]] Expected<void> rename(const std::string& from, const std::string& to) override {
        return real().rename(onDisk(from), onDisk(to));
    }
    [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& from, const std::string& to) override {
        return real().renameWithoutReplacing(onDisk(from), onDisk(to));
    }
    [[nodiscard]] Expected<void> removeFile(const std::string& path) override {
        return real().removeFile(onDisk(path));
    }
    [[nodiscard]] Expected<void> makeDirectory(const std::string& path) override {
        return real().makeDirectory(onDisk(path));
    }
    [[nodiscard]] Expected<void> syncDirectory(const std::string& path) override {
        return real().syncDirectory(onDisk(path));
    }

private:
    [[nodiscard]] virtual std::string onDisk(const std::string& path) const = 0;
};

// What lies below `alias` is what lies below `target`, as under a bind mount.
class BindMount final : public RedirectingFileSystem {
public:
    BindMount(FileSystem& real, std::string alias, std::string target)
        : RedirectingFileSystem(real), alias_(std::move(alias)), target_(std::move(target)) {}

private:
    [[nodiscard]] std::string onDisk(const std::string& path) const override {
        return isWithin(path, alias_) ? target_ + path.substr(alias_.size()) : path;
    }

    std::string alias_;
    std::string target_;
};

// Ignores case in the names of what lies in one folder.
class CaseIgnoringVolume final : public RedirectingFileSystem {
public:
    CaseIgnoringVolume(FileSystem& real, std::string folder)
        : RedirectingFileSystem(real), folder_(std::move(folder)) {}

private:
    [[nodiscard]] std::string onDisk(const std::string& path) const override {
        auto result = path;
        if (isWithin(path, folder_))
            std::transform(result.begin() + static_cast<std::ptrdiff_t>(folder_.size()), result.end(),
                           result.begin() + static_cast<std::ptrdiff_t>(folder_.size()),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        return result;
    }

    std::string folder_;
};

class DuplicateRemovalTest : public ::testing::Test {
protected:
    // The reason why `path` must stay, as a duplicate of `canonical`; kAllowed if it may go.
    std::string reason(const std::string& path, const std::string& kept) { return reason(disk, path, kept); }

    std::string reason(FileSystem& fileSystem, const std::string& path, const std::string& kept) const {
        return reason(fileSystem, dest, path, kept);
    }

    std::string reason(FileSystem& fileSystem, const std::string& destination, const std::string& path,
                       const std::string& kept) const {
        DuplicateRemoval removal(fileSystem, destination, state);
        const auto allowed = removal.check(path, {twinHash, {kept, path}});
        return allowed ? kAllowed : allowed.error().description;
    }

    // Marks what stands at `path` as placed with the content of `sha256`.
    void mark(const std::string& path, std::string_view sha256) {
        state.usedDestPaths[path].mark =
            std::make_unique<PlacementMark>(PlacementMark{sha256, disk.status(path).value()});
    }

    TemporaryFolder folder{TemporaryFolder::Where::inMemory};
    std::string dest = folder.makeFolder("dest");
    LinuxFileSystem disk;
    RunState state;
    std::string canonical = folder.write("dest/a.jpg", "twin");
    std::string duplicate = folder.write("dest/2023/b.jpg", "twin");
    std::string twinHash = sha256OfFile(disk, canonical).value();
};

TEST_F(DuplicateRemovalTest, ADuplicateMayGoIfBothHoldTheContent) {
    EXPECT_EQ(reason(duplicate, canonical), kAllowed);
    EXPECT_EQ(reason(canonical, duplicate), kAllowed);
}

TEST_F(DuplicateRemovalTest, AnOlderFileOfOtherContentStays) {
    folder.write("dest/2023/b.jpg", "older");
    EXPECT_EQ(reason(duplicate, canonical), "It was not placed by this run and has other content");
}

TEST_F(DuplicateRemovalTest, ADuplicateOfWhatIsNotThereStays) {
    folder.write("dest/a.jpg", "older");
    EXPECT_EQ(reason(duplicate, canonical), "The file to keep has other content");
    std::filesystem::remove(canonical);
    EXPECT_EQ(reason(duplicate, canonical), "The file to keep cannot be found");
    std::filesystem::create_symlink("nowhere", canonical);
    EXPECT_EQ(reason(duplicate, canonical), "The file to keep cannot be found");
    std::filesystem::remove(canonical);
    folder.makeFolder("dest/a.jpg");
    EXPECT_EQ(reason(duplicate, canonical), "The file to keep is not a regular file");
}

TEST_F(DuplicateRemovalTest, WhatCannotBeReadProvesNothing) {
    class Unreadable final : public ForwardingFileSystem {
    public:
        Unreadable(FileSystem& real, std::string path) : ForwardingFileSystem(real), path_(std::move(path)) {}
        [[nodiscard]] Expected<std::unique_ptr<InputFile>> openForReading(const std::string& path,
                                                                          bool follow) override {
            if (path == path_) return systemFailure(EIO);
            return real().openForReading(path, follow);
        }

    private:
        std::string path_;
    };
    Unreadable withoutCanonical(disk, canonical);
    EXPECT_EQ(reason(withoutCanonical, duplicate, canonical), "The file to keep has other content");
    Unreadable withoutDuplicate(disk, duplicate);
    EXPECT_EQ(reason(withoutDuplicate, duplicate, canonical), "It was not placed by this run and has other content");
}

TEST_F(DuplicateRemovalTest, OnePathIsNoDuplicateOfItself) {
    EXPECT_EQ(reason(canonical, canonical), "Both paths lead to the same file");
}

TEST_F(DuplicateRemovalTest, AHardLinkStays) {
    std::filesystem::create_hard_link(canonical, dest + "/link.jpg");
    EXPECT_EQ(reason(dest + "/link.jpg", canonical), "Both paths lead to the same file");
}

TEST_F(DuplicateRemovalTest, ASymlinkStaysAndSoDoesWhatItLeadsTo) {
    std::filesystem::create_symlink(canonical, dest + "/link.jpg");
    EXPECT_EQ(reason(dest + "/link.jpg", canonical), "It is not a regular file");
    EXPECT_EQ(reason(canonical, dest + "/link.jpg"), "Both paths lead to the same file");
}

TEST_F(DuplicateRemovalTest, AFolderStays) {
    folder.makeFolder("dest/folder.jpg");
    EXPECT_EQ(reason(dest + "/folder.jpg", canonical), "It is not a regular file");
}

TEST_F(DuplicateRemovalTest, WhatIsReachedThroughASymlinkedFolderStays) {
    std::filesystem::create_directory_symlink(dest + "/2023", dest + "/alias");
    EXPECT_EQ(reason(dest + "/alias/b.jpg", canonical), "A symbolic link leads to it");
    folder.write("elsewhere/deep/c.jpg", "twin");
    std::filesystem::create_directory_symlink(folder / "elsewhere", dest + "/2023/elsewhere");
    EXPECT_EQ(reason(dest + "/2023/elsewhere/deep/c.jpg", canonical), "A symbolic link leads to it");
}

TEST_F(DuplicateRemovalTest, TheDestinationMayBeASymlinkItself) {
    const auto alias = folder / "alias";
    std::filesystem::create_directory_symlink(dest, alias);
    EXPECT_EQ(reason(disk, alias, alias + "/2023/b.jpg", alias + "/a.jpg"), kAllowed);
    EXPECT_EQ(reason(disk, alias, alias + "/2023/b.jpg", canonical), kAllowed);
    EXPECT_EQ(reason(disk, alias, alias + "/a.jpg", canonical), "Both paths lead to the same file");
}

TEST_F(DuplicateRemovalTest, OnlyWhatLiesPlainlyBelowTheDestinationMayGo) {
    folder.write("dest2/c.jpg", "twin");
    folder.write("outside.jpg", "twin");
    for (const auto& path : {dest + "/2023/../2023/b.jpg", dest + "/./2023/b.jpg", dest + "//2023/b.jpg",
                             dest + "/2023//b.jpg", dest + "/2023/b.jpg/", dest + "/2023/./b.jpg",
                             dest + "/../outside.jpg", dest + "/..", dest + "/.", folder / "dest2/c.jpg",
                             folder / "outside.jpg", dest, dest + "/", std::string("dest/2023/b.jpg"), std::string()}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(reason(path, canonical), "It does not lie plainly in the destination folder");
    }
    EXPECT_EQ(reason(disk, "/", duplicate, canonical), kAllowed);
}

TEST_F(DuplicateRemovalTest, TheSameFileUnderAnotherMountStays) {
    BindMount mounted(disk, dest + "/mounted", dest + "/2023");
    EXPECT_EQ(reason(mounted, dest + "/mounted/b.jpg", duplicate), "Both paths lead to the same file");
    EXPECT_EQ(reason(mounted, dest + "/mounted/b.jpg", canonical), kAllowed);
}

// In a process of its own, whose mounts nobody else sees.
TEST_F(DuplicateRemovalTest, TheSameFileUnderARealMountStays) {
    constexpr int kMayNotMount = 77;
    const auto mounted = folder.makeFolder("dest/mounted");
    const auto child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount((dest + "/2023").c_str(), mounted.c_str(), nullptr, MS_BIND, nullptr) != 0)
            _exit(kMayNotMount);
        _exit(reason(mounted + "/b.jpg", duplicate) == "Both paths lead to the same file" ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_THAT(WEXITSTATUS(status), ::testing::AnyOf(0, kMayNotMount));
}

TEST_F(DuplicateRemovalTest, TheSameFileInOtherLettersStays) {
    CaseIgnoringVolume volume(disk, dest);
    EXPECT_EQ(reason(volume, dest + "/2023/B.JPG", duplicate), "Both paths lead to the same file");
    EXPECT_EQ(reason(volume, dest + "/2023/B.JPG", canonical), kAllowed);
}

TEST_F(DuplicateRemovalTest, AnOriginalStays) {
    const TaggedFile original{duplicate, nullptr, std::nullopt};
    state.usedDestPaths[duplicate].source = &original;
    EXPECT_EQ(reason(duplicate, canonical), "It is an original");
    mark(duplicate, twinHash);
    EXPECT_EQ(reason(duplicate, canonical), "It is an original");
    // By whatever path, and of whichever file of the group.
    std::filesystem::create_hard_link(duplicate, folder / "source.jpg");
    const TaggedFile linked{folder / "source.jpg", nullptr, std::nullopt};
    state.usedDestPaths[duplicate].source = nullptr;
    state.usedDestPaths[canonical].source = &linked;
    EXPECT_EQ(reason(duplicate, canonical), "It is an original");
    EXPECT_EQ(reason(canonical, duplicate), kAllowed);
}

TEST_F(DuplicateRemovalTest, WhatTheRunPlacedIsNotReadAgain) {
    mark(canonical, twinHash);
    mark(duplicate, twinHash);
    testing::CallRecorder recorder(disk);
    EXPECT_EQ(reason(recorder, duplicate, canonical), kAllowed);
    EXPECT_THAT(recorder.calls(), IsEmpty());
}

// Its metadata was removed behind the copy, say.
TEST_F(DuplicateRemovalTest, WhatTheRunPlacedAndChangedItselfMayGo) {
    folder.write("dest/a.jpg", "stripped");
    folder.write("dest/2023/b.jpg", "stripped");
    EXPECT_NE(reason(duplicate, canonical), kAllowed);
    mark(canonical, twinHash);
    EXPECT_NE(reason(duplicate, canonical), kAllowed);
    mark(duplicate, twinHash);
    EXPECT_EQ(reason(duplicate, canonical), kAllowed);
}

TEST_F(DuplicateRemovalTest, AMarkCountsForItsOwnContentAlone) {
    folder.write("dest/2023/b.jpg", "other");
    const auto otherHash = sha256OfFile(disk, duplicate).value();
    mark(duplicate, otherHash);
    EXPECT_EQ(reason(duplicate, canonical), "It was not placed by this run and has other content");
}

TEST_F(DuplicateRemovalTest, AMarkCountsOnlyWhileTheFileIsAsItWas) {
    const auto expectReread = [&](const std::string& change) {
        SCOPED_TRACE(change);
        EXPECT_EQ(reason(duplicate, canonical), "It was not placed by this run and has other content");
    };
    const auto date = disk.status(duplicate)->modified;
    mark(duplicate, twinHash);
    folder.write("dest/2023/b.jpg", "TWIN");
    ASSERT_TRUE(disk.setModificationDate(duplicate, date + std::chrono::seconds(1)));
    expectReread("written to");

    folder.write("dest/2023/b.jpg", "twin");
    mark(duplicate, twinHash);
    const auto markedDate = disk.status(duplicate)->modified;
    folder.write("dest/2023/b.jpg", "longer");
    ASSERT_TRUE(disk.setModificationDate(duplicate, markedDate));
    expectReread("grown");

    folder.write("dest/2023/b.jpg", "twin");
    mark(duplicate, twinHash);
    const auto replacedDate = disk.status(duplicate)->modified;
    folder.write("dest/2023/new", "TWIN");
    std::filesystem::rename(dest + "/2023/new", duplicate);
    ASSERT_TRUE(disk.setModificationDate(duplicate, replacedDate));
    expectReread("replaced");
}

TEST_F(DuplicateRemovalTest, TellsWhetherSomethingIsThere) {
    std::filesystem::create_symlink("nowhere", dest + "/dangling");
    std::filesystem::create_symlink(canonical, dest + "/link");
    const DuplicateRemoval removal(disk, dest, state);
    EXPECT_TRUE(removal.existsAt(canonical));
    EXPECT_TRUE(removal.existsAt(dest + "/link"));
    EXPECT_FALSE(removal.existsAt(dest + "/dangling"));
    EXPECT_FALSE(removal.existsAt(dest + "/missing"));
    EXPECT_FALSE(removal.existsAt(canonical + "/below"));
}

// Whole runs.
class DuplicateRemovalRunTest : public RunTest {
protected:
    static Options removing(Options options, DuplicateAction action = DuplicateAction::skip,
                            ConflictPolicy policy = ConflictPolicy::rename) {
        options.namingStyle = NamingStyle::original;
        options.duplicateAction = action;
        options.conflictPolicy = policy;
        return options;
    }

    [[nodiscard]] std::vector<std::string> actions() const {
        std::vector<std::string> lines;
        for (const auto& line : log())
            if (line.starts_with("♻") || line.find("duplicate: ") != std::string::npos) lines.push_back(line);
        return lines;
    }

    void runOn(FileSystem& other, const Options& options) {
        testing::EngineHarness runner({.fileSystem = &other, .clock = &clock});
        runner.run({source}, dest, options);
        harness.observer.allLogLines = runner.observer.allLogLines;
    }

    [[nodiscard]] std::vector<std::string> photosAtDest() const {
        auto files = filesBelow(dest);
        std::erase_if(files, [](const auto& file) { return file.starts_with("_vellomar_undo_"); });
        return files;
    }

    testing::ScopedTimeZone zone{"UTC"};
    std::string month = dest + "/2023/08/";
};

TEST_F(DuplicateRemovalRunTest, ACopyRunRemovesTheLaterOne) {
    photo("20230815_143021.jpg", "twin");
    photo("20230814_143021.jpg", "twin");
    run(removing(copyOptions()));
    EXPECT_THAT(actions(), ElementsAre("♻ Removed duplicate: 20230815_143021.jpg"));
    EXPECT_THAT(photosAtDest(), ElementsAre("2023/08/20230814_143021.jpg"));
    EXPECT_THAT(filesBelow(source), ElementsAre("20230814_143021.jpg", "20230815_143021.jpg"));
}

TEST_F(DuplicateRemovalRunTest, AMoveRunKeepsOneOfThem) {
    photo("20230815_143021.jpg", "twin");
    photo("20230814_143021.jpg", "twin");
    run(removing(moveOptions()));
    EXPECT_THAT(actions(), ElementsAre("♻ Removed duplicate: 20230815_143021.jpg"));
    EXPECT_EQ(contentOf(month + "20230814_143021.jpg"), "twin");
    EXPECT_THAT(filesBelow(source), IsEmpty());
}

TEST_F(DuplicateRemovalRunTest, WhatWasPlacedIsReadOnceOnly) {
    photo("20230815_143021.jpg", "twin");
    photo("20230814_143021.jpg", "twin");
    for (auto options : {removing(copyOptions()), removing(moveOptions())}) {
        options.verifyAfterCopy = false;
        testing::CallRecorder recorder(fileSystem);
        runOn(recorder, options);
        EXPECT_THAT(actions(), ElementsAre("♻ Removed duplicate: 20230815_143021.jpg"));
        EXPECT_EQ(std::ranges::count(recorder.calls(), "read " + month + "20230814_143021.jpg"), 1);
        EXPECT_EQ(std::ranges::count(recorder.calls(), "read " + month + "20230815_143021.jpg"), 1);
        std::filesystem::remove_all(dest + "/2023");
    }
}

// With the policy "rename" the copy stands beside the older file, whose path is the final destination all the same.
TEST_F(DuplicateRemovalRunTest, AnOlderFileAtTheFinalDestinationIsNoDuplicate) {
    for (const auto policy : {ConflictPolicy::rename, ConflictPolicy::skip}) {
        for (const auto action : {DuplicateAction::skip, DuplicateAction::moveToBin}) {
            SCOPED_TRACE(std::string(rawText(policy)).append(", ").append(rawText(action)));
            std::filesystem::remove_all(dest);
            photo("20230814_143021.jpg", "twin");
            photo("20230815_143021.jpg", "twin");
            folder.write("dest/2023/08/20230815_143021.jpg", "older");
            harness.observer.allLogLines.clear();
            run(removing(copyOptions(), action, policy));
            EXPECT_THAT(actions(), ElementsAre(std::string("⚠ Could not ") +
                                               (action == DuplicateAction::skip ? "remove" : "move") +
                                               " duplicate: It was not placed by this run and has other content"));
            EXPECT_EQ(contentOf(month + "20230815_143021.jpg"), "older");
            EXPECT_EQ(contentOf(month + "20230814_143021.jpg"), "twin");
            EXPECT_EQ(exists(month + "20230815_143021 (1).jpg"), policy == ConflictPolicy::rename);
        }
    }
}

TEST_F(DuplicateRemovalRunTest, WhereAnOlderFileStandsInThePlaceOfTheCanonicalOneItsDuplicateStays) {
    for (const auto policy : {ConflictPolicy::rename, ConflictPolicy::skip}) {
        SCOPED_TRACE(rawText(policy));
        std::filesystem::remove_all(dest);
        photo("20230814_143021.jpg", "twin");
        photo("20230815_143021.jpg", "twin");
        folder.write("dest/2023/08/20230814_143021.jpg", "older");
        harness.observer.allLogLines.clear();
        run(removing(moveOptions(), DuplicateAction::skip, policy));
        EXPECT_THAT(actions(), ElementsAre("⚠ Could not remove duplicate: The file to keep has other content"));
        EXPECT_EQ(contentOf(month + "20230815_143021.jpg"), "twin");
        EXPECT_EQ(contentOf(month + "20230814_143021.jpg"), "older");
    }
}

// The second of two runs finds at the final destinations what the first one left, to the byte.
TEST_F(DuplicateRemovalRunTest, AnOlderFileOfTheSameContentIsADuplicate) {
    photo("20230814_143021.jpg", "twin");
    photo("20230815_143021.jpg", "twin");
    run(removing(copyOptions(), DuplicateAction::log));
    harness.observer.allLogLines.clear();
    run(removing(copyOptions(), DuplicateAction::skip, ConflictPolicy::skip));
    EXPECT_THAT(actions(), ElementsAre("♻ Removed duplicate: 20230815_143021.jpg"));
    EXPECT_THAT(photosAtDest(), ElementsAre("2023/08/20230814_143021.jpg"));
}

// It counts by what it holds when it is to go, not as placed by the run, whose copy stands beside it.
TEST_F(DuplicateRemovalRunTest, AnOlderFileBesideWhichTheCopyStandsIsReadAgain) {
    photo("20230814_143021.jpg", "twin");
    photo("20230815_143021.jpg", "twin");
    folder.write("dest/2023/08/20230815_143021.jpg", "twin");
    auto options = removing(copyOptions());
    options.verifyAfterCopy = false;
    testing::CallRecorder recorder(fileSystem);
    runOn(recorder, options);
    EXPECT_THAT(actions(), ElementsAre("♻ Removed duplicate: 20230815_143021.jpg"));
    EXPECT_EQ(std::ranges::count(recorder.calls(), "read " + month + "20230815_143021.jpg"), 2);
    EXPECT_THAT(photosAtDest(), ElementsAre("2023/08/20230814_143021.jpg", "2023/08/20230815_143021 (1).jpg"));
}

TEST_F(DuplicateRemovalRunTest, WhatAWeakDateKeptAtHomeIsNeitherRemovedNorMissed) {
    photo("20230814_143021.jpg", "twin");
    const auto weak = photo("no date.jpg", "twin");  // of September 2023
    run(removing(moveOptions()));
    EXPECT_TRUE(hasLine("⚠ Skipped move (weak date score): no date.jpg"));
    EXPECT_TRUE(hasLine("Found 1 duplicate group(s)."));
    EXPECT_THAT(actions(), IsEmpty());
    EXPECT_EQ(contentOf(month + "20230814_143021.jpg"), "twin");
    EXPECT_EQ(contentOf(weak), "twin");
}

TEST_F(DuplicateRemovalRunTest, AWeakDateThatWouldHaveBeenCanonicalKeepsItsDuplicate) {
    photo("20231014_143021.jpg", "twin");
    const auto weak = photo("no date.jpg", "twin");  // of September 2023
    run(removing(moveOptions()));
    EXPECT_THAT(actions(), ElementsAre("⚠ Could not remove duplicate: The file to keep cannot be found"));
    EXPECT_EQ(contentOf(dest + "/2023/10/20231014_143021.jpg"), "twin");
    EXPECT_EQ(contentOf(weak), "twin");
}

TEST_F(DuplicateRemovalRunTest, ACopyThatDiffersFromItsSourceDoesNotStandInForADuplicate) {
    class Corrupting final : public ForwardingFileSystem {
    public:
        Corrupting(FileSystem& real, std::string path) : ForwardingFileSystem(real), path_(std::move(path)) {}
        [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& from, const std::string& to) override {
            if (to == path_) std::filesystem::resize_file(from, 3);
            return real().renameWithoutReplacing(from, to);
        }

    private:
        std::string path_;
    };
    photo("20230814_143021.jpg", "twin");
    photo("20230815_143021.jpg", "twin");
    Corrupting corrupting(fileSystem, month + "20230814_143021.jpg");
    for (const auto& options : {removing(copyOptions()), removing(moveOptions())}) {
        std::filesystem::remove_all(dest);
        runOn(corrupting, options);
        EXPECT_THAT(actions(), ElementsAre("⚠ Could not remove duplicate: The file to keep has other content"));
        EXPECT_EQ(contentOf(month + "20230815_143021.jpg"), "twin");
    }
}

TEST_F(DuplicateRemovalRunTest, ASourceThatIsTakenTwiceLeavesOneCopy) {
    const auto path = photo("20230814_143021.jpg", "twin");
    harness.run({source, source}, dest, removing(copyOptions()));
    EXPECT_THAT(actions(), ElementsAre("♻ Removed duplicate: 20230814_143021.jpg"));
    EXPECT_EQ(contentOf(month + "20230814_143021 (1).jpg"), "twin");
    EXPECT_EQ(contentOf(path), "twin");
}

// The originals lie at their own final destinations.
TEST_F(DuplicateRemovalRunTest, SortingAFolderIntoItselfRemovesNoOriginal) {
    using enum ConflictPolicy;
    for (const auto policy : {skip, rename, overwrite}) {
        for (const auto& base : {copyOptions(), moveOptions()}) {
            SCOPED_TRACE(rawText(policy));
            std::filesystem::remove_all(dest);
            folder.write("dest/2023/08/20230814_143021.jpg", "twin");
            folder.write("dest/2023/08/20230815_143021.jpg", "twin");
            harness.run({dest + "/2023/08"}, dest, removing(base, DuplicateAction::skip, policy));
            EXPECT_EQ(contentOf(month + "20230814_143021.jpg"), "twin");
            EXPECT_EQ(contentOf(month + "20230815_143021.jpg"), "twin");
        }
    }
    EXPECT_THAT(actions(), Contains("⚠ Could not remove duplicate: It is an original"));
}

TEST_F(DuplicateRemovalRunTest, OnAVolumeThatIgnoresCaseTheOneFileStays) {
    CaseIgnoringVolume volume(fileSystem, dest);
    photo("1/20230814_143021 x.jpg", "twin");
    photo("2/20230814_143021 X.jpg", "twin");
    auto options = removing(moveOptions(), DuplicateAction::skip, ConflictPolicy::overwrite);
    options.namingStyle = NamingStyle::custom;
    options.customFormat = "{original}.{ext}";
    runOn(volume, options);
    EXPECT_THAT(actions(), ElementsAre("⚠ Could not remove duplicate: Both paths lead to the same file"));
    EXPECT_EQ(contentOf(dest + "/20230814_143021 x.jpg"), "twin");
}

// Once for every call that the run makes to the disk, each time with that call failing.
class FaultyRemoval {
public:
    explicit FaultyRemoval(Options options) : options_(std::move(options)) {
        for (const auto& [name, content] : library())
            folder_.write("source/" + name, content);
        folder_.write("dest/2023/08/20230816_101010.jpg", "older");
    }

    std::size_t run(std::size_t call, FaultyFileSystem::Fault fault) {
        FaultyFileSystem faulty(disk_, call, fault, EIO);
        testing::NoMetadataReaders noReaders;
        testing::EngineHarness runner({.fileSystem = &faulty, .metadataReaders = &noReaders});
        runner.run({folder_ / "source"}, folder_ / "dest", options_);
        return faulty.calls();
    }

    void runAndDie(std::size_t call) {
        const auto child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            run(call, FaultyFileSystem::Fault::killProcess);
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
    }

    // Of every content there is at least one whole file left.
    void expectNothingLost() const {
        std::set<std::string> contents;
        for (const auto& file : filesBelow(folder_.path()))
            if (!file.ends_with(".__partial")) contents.insert(contentOf(folder_ / file));
        for (const auto& [name, content] : library())
            EXPECT_TRUE(contents.contains(content)) << name;
        EXPECT_TRUE(contents.contains("older"));
    }

private:
    static const std::map<std::string, std::string>& library() {
        static const std::map<std::string, std::string> files = {{"20230814_101010.jpg", "twin"},
                                                                 {"20230815_101010.jpg", "twin"},
                                                                 {"20230816_101010.jpg", "twin"},
                                                                 {"20230817_101010.jpg", "other"}};
        return files;
    }

    TemporaryFolder folder_{TemporaryFolder::Where::inMemory};
    LinuxFileSystem disk_;
    Options options_;
};

class DuplicateRemovalFaults : public DuplicateRemovalRunTest {
protected:
    // Runs that leave no originals behind, by name.
    static std::vector<std::pair<std::string, Options>> jobs() {
        return {{"remove", removing(moveOptions())}, {"bin", removing(moveOptions(), DuplicateAction::moveToBin)}};
    }
};

TEST_F(DuplicateRemovalFaults, NoFailingCallCostsTheLastCopy) {
    for (const auto& [name, options] : jobs()) {
        const auto calls = FaultyRemoval(options).run(0, FaultyFileSystem::Fault::fail);
        ASSERT_GT(calls, 50);
        for (std::size_t call = 1; call <= calls; ++call) {
            SCOPED_TRACE(name + ", call " + std::to_string(call));
            FaultyRemoval attempt(options);
            attempt.run(call, FaultyFileSystem::Fault::fail);
            attempt.expectNothingLost();
        }
    }
}

TEST_F(DuplicateRemovalFaults, NoSuddenEndCostsTheLastCopy) {
    for (const auto& [name, options] : jobs()) {
        const auto calls = FaultyRemoval(options).run(0, FaultyFileSystem::Fault::fail);
        for (std::size_t call = 1; call <= calls; ++call) {
            SCOPED_TRACE(name + ", call " + std::to_string(call));
            FaultyRemoval attempt(options);
            attempt.runAndDie(call);
            attempt.expectNothingLost();
        }
    }
}

}  // namespace
}  // namespace vellomar
