#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/FileMove.h"
#include "platform/LinuxFileSystem.h"
#include "support/CallRecorder.h"
#include "support/FaultyFileSystem.h"
#include "support/ScopedOrdinaryUser.h"
#include "support/SeparateVolume.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::contentOf;
using ::testing::ElementsAre;
using testing::exists;
using testing::FaultyFileSystem;
using testing::TemporaryFolder;

// What the kernel called the failure; 0 for a success.
int errorOf(const Expected<void>& result) {
    return result ? 0 : result.error().code;
}

// The folder "far" is another volume.
class FileMove : public ::testing::Test {
protected:
    // A target on the same volume as `from`, and one on the other.
    [[nodiscard]] std::vector<std::string> targets() const { return {folder / "a.jpg", folder / "far/a.jpg"}; }

    [[nodiscard]] Expected<void> move(const std::string& to) { return moveFile(fileSystem, from, to); }

    TemporaryFolder folder{TemporaryFolder::Where::inMemory};
    LinuxFileSystem disk;
    testing::SeparateVolume fileSystem{disk, folder.makeFolder("far")};
    std::string from = folder.write("near/photo.jpg", "photo");
    std::string far = folder / "far/a.jpg";
    std::string partial = far + ".__partial";
};

TEST_F(FileMove, TakesTheFileToAFreeName) {
    for (const auto& to : targets()) {
        SCOPED_TRACE(to);
        folder.write("near/photo.jpg", "photo");
        EXPECT_EQ(errorOf(move(to)), 0);
        EXPECT_FALSE(exists(from));
        EXPECT_EQ(contentOf(to), "photo");
        EXPECT_FALSE(exists(to + ".__partial"));
    }
}

TEST_F(FileMove, KeepsModeAndTimes) {
    for (const auto& to : targets()) {
        SCOPED_TRACE(to);
        folder.write("near/photo.jpg", "photo");
        ASSERT_EQ(chmod(from.c_str(), 0440), 0);
        ASSERT_TRUE(disk.setModificationDate(from, instantFromUnixSeconds(-12'345.25)));
        ASSERT_EQ(errorOf(move(to)), 0);
        EXPECT_EQ(fs::status(to).permissions(), fs::perms(0440));
        EXPECT_EQ(disk.status(to).value().modified, instantFromUnixSeconds(-12'345.25));
    }
}

TEST_F(FileMove, BetweenRealVolumesToo) {
    const TemporaryFolder elsewhere;
    const auto to = elsewhere / "a.jpg";
    EXPECT_EQ(errorOf(moveFile(disk, from, to)), 0);
    EXPECT_FALSE(exists(from));
    EXPECT_EQ(contentOf(to), "photo");
}

TEST_F(FileMove, SparesWhateverStandsThere) {
    for (const auto& to : targets()) {
        SCOPED_TRACE(to);
        const std::vector<std::function<void()>> occupations = {
            [&] { folder.write(to.substr(folder.path().size() + 1), "other"); },
            [&] { fs::create_directory(to); },
            [&] { fs::create_symlink(folder / "nowhere", to); },
        };
        for (const auto& occupy : occupations) {
            occupy();
            EXPECT_EQ(errorOf(move(to)), EEXIST);
            EXPECT_EQ(contentOf(from), "photo");
            EXPECT_FALSE(exists(to + ".__partial"));
            EXPECT_TRUE(exists(to));
            fs::remove(to);
        }
    }
}

TEST_F(FileMove, NothingIsCopiedToANameThatIsTaken) {
    folder.write("far/a.jpg", "other");
    testing::CallRecorder recorder(fileSystem);
    EXPECT_EQ(errorOf(moveFile(recorder, from, far)), EEXIST);
    EXPECT_THAT(recorder.calls(), ElementsAre("rename " + from + " " + far));
    EXPECT_EQ(contentOf(far), "other");
}

TEST_F(FileMove, ToAFreeNameNeverReplacesWhatStands) {
    for (const auto& wanted : targets()) {
        SCOPED_TRACE(wanted);
        folder.write("near/photo.jpg", "photo");
        folder.write(wanted.substr(folder.path().size() + 1), "other");
        const auto numbered = wanted.substr(0, wanted.size() - 4) + " (1).jpg";
        EXPECT_EQ(moveToFreeName(fileSystem, from, wanted), numbered);
        EXPECT_EQ(contentOf(wanted), "other");
        EXPECT_EQ(contentOf(numbered), "photo");
        EXPECT_FALSE(exists(from));
    }
}

TEST_F(FileMove, RefusesFolders) {
    const auto whole = folder.makeFolder("near/folder/with/more");
    for (const auto& to : targets()) {
        EXPECT_EQ(errorOf(moveFile(fileSystem, folder / "near/folder", to)), EISDIR);
        EXPECT_FALSE(exists(to));
        EXPECT_TRUE(exists(whole));
    }
}

TEST_F(FileMove, TellsOfAFileThatIsNotThere) {
    for (const auto& to : targets()) {
        EXPECT_EQ(errorOf(moveFile(fileSystem, folder / "missing", to)), ENOENT);
        EXPECT_EQ(errorOf(moveFile(fileSystem, folder / "near/photo.jpg/below", to)), ENOTDIR);
        EXPECT_FALSE(exists(to));
    }
}

TEST_F(FileMove, TellsOfAFolderThatIsNotThere) {
    for (const auto* to : {"missing/a.jpg", "far/missing/a.jpg"}) {
        EXPECT_EQ(errorOf(move(folder / to)), ENOENT);
        EXPECT_EQ(contentOf(from), "photo");
    }
}

TEST_F(FileMove, ASymlinkMovesItselfWithinAVolume) {
    fs::create_symlink(from, folder / "near/link");
    EXPECT_EQ(errorOf(moveFile(fileSystem, folder / "near/link", folder / "link")), 0);
    EXPECT_EQ(fs::read_symlink(folder / "link"), from);
    EXPECT_FALSE(exists(folder / "near/link"));
    EXPECT_EQ(contentOf(from), "photo");
}

TEST_F(FileMove, WhatHasNoContentOfItsOwnStaysOnItsVolume) {
    const auto link = folder / "near/link";
    const auto pipe = folder / "near/pipe";
    fs::create_symlink(from, link);
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const auto& path : {link, pipe}) {
        EXPECT_EQ(errorOf(moveFile(fileSystem, path, far)), EXDEV);
        EXPECT_TRUE(exists(path));
        EXPECT_FALSE(exists(far));
        EXPECT_FALSE(exists(partial));
    }
    EXPECT_EQ(contentOf(from), "photo");
}

TEST_F(FileMove, AStalePartialMakesRoom) {
    folder.write("far/a.jpg.__partial", "torn");
    EXPECT_EQ(errorOf(move(far)), 0);
    EXPECT_EQ(contentOf(far), "photo");
    EXPECT_FALSE(exists(partial));
}

TEST_F(FileMove, ASymlinkAtThePartialsNameIsNotFollowed) {
    const auto victim = folder.write("far/victim", "victim");
    fs::create_symlink(victim, partial);
    EXPECT_EQ(errorOf(move(far)), 0);
    EXPECT_EQ(contentOf(far), "photo");
    EXPECT_EQ(contentOf(victim), "victim");
}

TEST_F(FileMove, AFolderAtThePartialsNameIsLeftAlone) {
    folder.write("far/a.jpg.__partial/kept", "kept");
    EXPECT_EQ(errorOf(move(far)), EEXIST);
    EXPECT_EQ(contentOf(from), "photo");
    EXPECT_EQ(contentOf(partial + "/kept"), "kept");
}

TEST_F(FileMove, TheLongestNamesMoveToo) {
    const std::string longest = std::string(251, 'n') + ".jpg";
    for (const auto* parent : {"", "far/"}) {
        folder.write("near/photo.jpg", "photo");
        const auto to = folder / (parent + longest);
        EXPECT_EQ(errorOf(move(to)), 0);
        EXPECT_EQ(contentOf(to), "photo");
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "far"), fs::directory_iterator()), 1);
}

TEST_F(FileMove, TheOriginalGoesLast) {
    testing::CallRecorder recorder(fileSystem);
    ASSERT_TRUE(moveFile(recorder, from, far));
    EXPECT_THAT(recorder.calls(),
                ElementsAre("rename " + from + " " + far, "remove " + partial, "read " + from, "create " + partial,
                            "sync " + partial, "dropCache " + partial, "rename " + partial + " " + far,
                            "syncDirectory " + folder.path() + "/far", "remove " + from));
}

// Does something to the disk right before the folder of a new name is synced: the copy has its name by then.
class Meddler final : public testing::ForwardingFileSystem {
public:
    Meddler(FileSystem& real, std::function<void()> meddle) : ForwardingFileSystem(real), meddle_(std::move(meddle)) {}

    [[nodiscard]] Expected<void> syncDirectory(const std::string& path) override {
        meddle_();
        return real().syncDirectory(path);
    }

private:
    std::function<void()> meddle_;
};

TEST_F(FileMove, AnOriginalThatWasWrittenToMeanwhileStays) {
    Meddler meddler(fileSystem, [&] { folder.write("near/photo.jpg", "photo, edited"); });
    const auto moved = moveFile(meddler, from, far);
    ASSERT_FALSE(moved);
    EXPECT_EQ(moved.error().description, "The file changed while it was being moved");
    EXPECT_EQ(contentOf(from), "photo, edited");
    EXPECT_FALSE(exists(far));
}

TEST_F(FileMove, AnotherFileInThePlaceOfTheOriginalLeavesBoth) {
    Meddler meddler(fileSystem, [&] { fs::rename(folder.write("near/new", "new photo"), from); });
    const auto moved = moveFile(meddler, from, far);
    ASSERT_FALSE(moved);
    EXPECT_EQ(moved.error().description, "The file changed while it was being moved");
    EXPECT_EQ(contentOf(from), "new photo");
    EXPECT_EQ(contentOf(far), "photo");
}

TEST_F(FileMove, AnOriginalThatIsGoneMeanwhileLivesOnAsTheCopy) {
    Meddler meddler(fileSystem, [&] { fs::remove(from); });
    EXPECT_EQ(errorOf(moveFile(meddler, from, far)), 0);
    EXPECT_EQ(contentOf(far), "photo");
}

TEST_F(FileMove, AFileThatReplacedTheCopyStays) {
    Meddler meddler(fileSystem, [&] {
        fs::rename(folder.write("far/new", "new photo"), far);
        folder.write("near/photo.jpg", "photo, edited");
    });
    EXPECT_FALSE(moveFile(meddler, from, far));
    EXPECT_EQ(contentOf(from), "photo, edited");
    EXPECT_EQ(contentOf(far), "new photo");
}

TEST_F(FileMove, AnOriginalThatMayNotGoStaysAndNoCopyOfIt) {
    fs::permissions(folder / "far", fs::perms::all);
    fs::permissions(folder / "near", fs::perms(0555));
    {
        const testing::ScopedOrdinaryUser user(folder.path());
        EXPECT_EQ(errorOf(move(far)), EACCES);
        EXPECT_FALSE(exists(far));
    }
    EXPECT_EQ(contentOf(from), "photo");
    EXPECT_FALSE(exists(partial));
}

// Moves a photo between two volumes with one call failing, or the process ending there.
class FileMoveFaults : public FileMove {
protected:
    [[nodiscard]] std::size_t callsOfAMove() {
        FaultyFileSystem faulty(fileSystem, 0, FaultyFileSystem::Fault::fail, 0);
        EXPECT_TRUE(moveFile(faulty, from, far));
        return faulty.calls();
    }

    void startAnew() {
        fs::remove(far);
        folder.write("near/photo.jpg", "photo");
        folder.write("far/a.jpg.__partial", "torn");
    }

    void moveAndDie(std::size_t call) {
        const auto child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            FaultyFileSystem faulty(fileSystem, call, FaultyFileSystem::Fault::killProcess, 0);
            static_cast<void>(moveFile(faulty, from, far));
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status));
    }

    void expectNothingLostOrShort() const {
        EXPECT_TRUE(exists(from) || exists(far));
        for (const auto& path : {from, far}) {
            if (!exists(path)) continue;
            EXPECT_EQ(contentOf(path), "photo");
        }
    }
};

TEST_F(FileMoveFaults, AFailingCallLeavesTheFileWhereItWasOrTakesItAllTheWay) {
    startAnew();
    const auto calls = callsOfAMove();
    ASSERT_GT(calls, 10);
    for (const int errnoValue : {EIO, ENOSPC, ENOENT}) {
        for (std::size_t call = 1; call <= calls; ++call) {
            SCOPED_TRACE("call " + std::to_string(call) + ", errno " + std::to_string(errnoValue));
            startAnew();
            FaultyFileSystem faulty(fileSystem, call, FaultyFileSystem::Fault::fail, errnoValue);
            const auto moved = moveFile(faulty, from, far);
            ASSERT_TRUE(faulty.hasFailed());
            expectNothingLostOrShort();
            EXPECT_EQ(moved.has_value(), exists(far));
            EXPECT_EQ(moved.has_value(), !exists(from));
            EXPECT_FALSE(moved.has_value() && exists(partial));
        }
    }
}

TEST_F(FileMoveFaults, AProcessThatEndsAnywhereLosesNothing) {
    startAnew();
    const auto calls = callsOfAMove();
    for (std::size_t call = 1; call <= calls; ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        startAnew();
        moveAndDie(call);
        expectNothingLostOrShort();
    }
}

}  // namespace
}  // namespace vellomar
