#include <filesystem>
#include <functional>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "engine/FileTransfer.h"
#include "engine/RunFixture.h"
#include "support/ScopedTimeZone.h"
#include "undo/ManifestFiles.h"

namespace vellomar {
namespace {

using ::testing::Contains;
using testing::contentOf;
using ::testing::ElementsAre;
using testing::exists;
using ::testing::Not;
using ::testing::StartsWith;

// The destination of "20230814_143021.jpg" in the original style.
constexpr const char* kName = "20230814_143021.jpg";
constexpr const char* kBelowDest = "/2023/08/20230814_143021.jpg";

// Does something behind the program's back at a moment of the test's choice.
class MeddlingFileSystem final : public testing::ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& from, const std::string& to) override {
        if (beforeRename) beforeRename(to);
        return real().renameWithoutReplacing(from, to);
    }
    [[nodiscard]] Expected<void> syncDirectory(const std::string& path) override {
        if (beforeSyncDirectory) beforeSyncDirectory(path);
        if (syncDirectoryError != 0) return systemFailure(syncDirectoryError);
        return real().syncDirectory(path);
    }
    [[nodiscard]] Expected<std::unique_ptr<InputFile>> openForReading(const std::string& path, bool follow) override {
        if (beforeRead) beforeRead(path);
        return real().openForReading(path, follow);
    }
    [[nodiscard]] Expected<void> removeFile(const std::string& path) override {
        if (path == unremovable) return systemFailure(EPERM);
        return real().removeFile(path);
    }

    std::function<void(const std::string& to)> beforeRename;
    std::function<void(const std::string& path)> beforeSyncDirectory;
    std::function<void(const std::string& path)> beforeRead;
    int syncDirectoryError = 0;
    std::string unremovable;
};

class FileTransferTest : public RunTest {
protected:
    static Options inOriginalStyle(Options options) {
        options.namingStyle = NamingStyle::original;
        return options;
    }
    static Options copying(ConflictPolicy policy = ConflictPolicy::rename) {
        auto options = inOriginalStyle(copyOptions());
        options.conflictPolicy = policy;
        return options;
    }
    static Options moving(ConflictPolicy policy = ConflictPolicy::rename) {
        auto options = inOriginalStyle(moveOptions());
        options.conflictPolicy = policy;
        return options;
    }
    static Options onNetwork(Options options) {
        options.storageIsNetwork = true;
        return options;
    }

    // A run whose disk is meddled with.
    void runMeddled(const Options& options) {
        testing::EngineHarness meddled({.fileSystem = &meddler, .clock = &clock});
        meddled.run({source}, dest, options);
        harness.observer.allLogLines = meddled.observer.allLogLines;
        verifyFailures = meddled.state().verifyFailures;
    }

    [[nodiscard]] std::vector<UndoEntry> entries() {
        const auto manifest = loadNewestManifest(disk, dest);
        return manifest ? manifest->entries : std::vector<UndoEntry>{};
    }

    testing::ScopedTimeZone zone{"UTC"};
    std::string destination = dest + kBelowDest;
    MeddlingFileSystem meddler{fileSystem};
    int verifyFailures = 0;
};

TEST_F(FileTransferTest, ACopyKeepsContentModeAndTimes) {
    const auto path = photo(kName, "photo");
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    run(copying());
    EXPECT_EQ(contentOf(destination), "photo");
    struct stat before {};
    struct stat after {};
    ASSERT_EQ(stat(path.c_str(), &before), 0);
    ASSERT_EQ(stat(destination.c_str(), &after), 0);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
    EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    EXPECT_FALSE(exists(destination + ".__partial"));
}

TEST_F(FileTransferTest, AZeroByteFileIsCopiedAndVerified) {
    photo(kName, "");
    run(copying());
    EXPECT_EQ(contentOf(destination), "");
    EXPECT_EQ(harness.state().verifyFailures, 0);
    EXPECT_THAT(fileLines(), ElementsAre("✓ Copied: " + std::string(kName) + " → " + destination));
}

TEST_F(FileTransferTest, ANetworkCopyCarriesNoAttributes) {
    const auto path = photo(kName, "photo");
    run(onNetwork(copying()));
    EXPECT_EQ(contentOf(destination), "photo");
    struct stat after {};
    ASSERT_EQ(stat(destination.c_str(), &after), 0);
    EXPECT_NE(after.st_mtim.tv_sec, 1'693'569'600);
}

TEST_F(FileTransferTest, AStalePartialFileIsReplaced) {
    photo(kName, "photo");
    folder.write("dest" + std::string(kBelowDest) + ".__partial", "a longer leftover of a run that died");
    run(copying());
    EXPECT_EQ(contentOf(destination), "photo");
    EXPECT_FALSE(exists(destination + ".__partial"));
}

TEST_F(FileTransferTest, ASymlinkAtThePartialPathIsNotFollowed) {
    photo(kName, "photo");
    const auto victim = folder.write("victim.txt", "untouched");
    std::filesystem::create_directories(dest + "/2023/08");
    ASSERT_EQ(symlink(victim.c_str(), (destination + ".__partial").c_str()), 0);
    run(copying());
    EXPECT_EQ(contentOf(victim), "untouched");
    EXPECT_EQ(contentOf(destination), "photo");
}

TEST_F(FileTransferTest, AFolderAtThePartialPathFailsThatFileAndStays) {
    photo(kName, "photo");
    folder.write("dest" + std::string(kBelowDest) + ".__partial/precious.txt", "kept");
    run(copying());
    EXPECT_THAT(fileLines(),
                ElementsAre("✗ Copy failed [" + std::string(kName) + "]: File exists (domain=POSIX code=17)",
                            "  exists=true readable=true destParentWritable=true"));
    EXPECT_EQ(contentOf(destination + ".__partial/precious.txt"), "kept");
}

TEST_F(FileTransferTest, ConflictSkipLeavesTheExistingFile) {
    photo(kName, "new");
    folder.write("dest" + std::string(kBelowDest), "old");
    run(copying(ConflictPolicy::skip));
    EXPECT_THAT(fileLines(), ElementsAre("⚠ Skipped (conflict): " + std::string(kName)));
    EXPECT_THAT(filesBelow(dest), ElementsAre("2023/08/20230814_143021.jpg"));
    EXPECT_EQ(contentOf(destination), "old");
}

TEST_F(FileTransferTest, ConflictRenameKeepsBothAndGoesOnSpeakingOfTheOldPath) {
    photo(kName, "new");
    folder.write("dest" + std::string(kBelowDest), "old");
    auto options = copying(ConflictPolicy::rename);
    options.syncFSDates = true;
    run(options);
    EXPECT_EQ(contentOf(destination), "old");
    EXPECT_EQ(contentOf(dest + "/2023/08/20230814_143021 (1).jpg"), "new");
    // The hash, the comparison and the dates are those of the older file.
    EXPECT_THAT(fileLines(), ElementsAre("✗ VERIFY FAILED — copy may be corrupted: " + std::string(kName),
                                         "  src=11507a0e2f5e69d5… dst=cba06b5736faf67e…",
                                         "✓ Copied: " + std::string(kName) + " → " + destination));
    EXPECT_EQ(harness.state().verifyFailures, 1);
    EXPECT_TRUE(hasLine("  Verify failures:    1"));
    ASSERT_EQ(entries().size(), 1);
    EXPECT_EQ(entries()[0].destination, destination);
    EXPECT_EQ(entries()[0].sha256, "cba06b5736faf67e54b07b561eae94395e774c517a7d910a54369e1263ccfbd4");
    struct stat older {};
    ASSERT_EQ(stat(destination.c_str(), &older), 0);
    EXPECT_EQ(older.st_mtim.tv_sec, 1'692'023'421);  // 2023-08-14 14:30:21 UTC
}

TEST_F(FileTransferTest, ConflictOverwriteReplacesInOneStep) {
    photo(kName, "new");
    folder.write("dest" + std::string(kBelowDest), "old");
    run(copying(ConflictPolicy::overwrite));
    EXPECT_EQ(contentOf(destination), "new");
    EXPECT_THAT(filesBelow(dest), ElementsAre("2023/08/20230814_143021.jpg", StartsWith("_vellomar_undo_")));
}

TEST_F(FileTransferTest, OverwriteNeverRemovesAFolder) {
    photo(kName, "new");
    folder.write("dest" + std::string(kBelowDest) + "/inside.txt", "kept");
    run(copying(ConflictPolicy::overwrite));
    EXPECT_THAT(fileLines(),
                ElementsAre("✗ Copy failed [" + std::string(kName) + "]: Is a directory (domain=POSIX code=21)",
                            "  exists=true readable=true destParentWritable=true"));
    EXPECT_EQ(contentOf(destination + "/inside.txt"), "kept");
    EXPECT_FALSE(exists(destination + ".__partial"));
    run(moving(ConflictPolicy::overwrite));
    EXPECT_EQ(contentOf(destination + "/inside.txt"), "kept");
    EXPECT_EQ(contentOf(source + "/" + kName), "new");
}

TEST_F(FileTransferTest, ADanglingSymlinkAtTheDestinationIsAConflict) {
    photo(kName, "new");
    std::filesystem::create_directories(dest + "/2023/08");
    ASSERT_EQ(symlink("/nowhere", destination.c_str()), 0);
    run(copying(ConflictPolicy::skip));
    EXPECT_THAT(fileLines(), ElementsAre("⚠ Skipped (conflict): " + std::string(kName)));
    EXPECT_TRUE(std::filesystem::is_symlink(destination));
}

TEST_F(FileTransferTest, AFileThatAppearsAtTheLastMomentIsAConflictToo) {
    photo(kName, "new");
    meddler.beforeRename = [&](const std::string& to) {
        if (to == destination) folder.write("dest" + std::string(kBelowDest), "somebody else's");
    };
    runMeddled(copying(ConflictPolicy::rename));
    EXPECT_EQ(contentOf(destination), "somebody else's");
    EXPECT_EQ(contentOf(dest + "/2023/08/20230814_143021 (1).jpg"), "new");
}

TEST_F(FileTransferTest, AFreeNameThatIsTakenMeanwhileIsReplacedByTheNextOne) {
    photo(kName, "new");
    folder.write("dest" + std::string(kBelowDest), "old");
    meddler.beforeRename = [&](const std::string& to) {
        if (to.ends_with("(1).jpg")) folder.write("dest/2023/08/20230814_143021 (1).jpg", "somebody else's");
    };
    runMeddled(copying(ConflictPolicy::rename));
    EXPECT_EQ(contentOf(dest + "/2023/08/20230814_143021 (1).jpg"), "somebody else's");
    EXPECT_EQ(contentOf(dest + "/2023/08/20230814_143021 (2).jpg"), "new");
}

TEST_F(FileTransferTest, ACopyThatDiffersIsReportedAndRecorded) {
    photo(kName, "photo");
    bool isDamaged = false;
    meddler.beforeRead = [&](const std::string& path) {
        if (path != destination || isDamaged) return;
        isDamaged = true;
        folder.write("dest" + std::string(kBelowDest), "phoTo");
    };
    runMeddled(copying());
    EXPECT_EQ(verifyFailures, 1);
    EXPECT_THAT(fileLines(),
                ElementsAre("✗ VERIFY FAILED — copy may be corrupted: " + std::string(kName), StartsWith("  src="),
                            "✓ Copied: " + std::string(kName) + " → " + destination));
    EXPECT_EQ(entries().size(), 1);
    EXPECT_EQ(contentOf(destination), "phoTo");
}

TEST_F(FileTransferTest, ACopyThatCannotBeReadBackIsReported) {
    photo(kName, "photo");
    bool isReplaced = false;
    meddler.beforeRead = [&](const std::string& path) {
        if (path != destination || isReplaced) return;
        isReplaced = true;
        std::filesystem::remove(destination);
        std::filesystem::create_directory(destination);  // opens, and fails to read
    };
    runMeddled(copying());
    EXPECT_EQ(verifyFailures, 1);
    EXPECT_THAT(fileLines(), ElementsAre("✗ VERIFY FAILED — copy may be corrupted: " + std::string(kName),
                                         ::testing::EndsWith("… dst=…"), StartsWith("✓ Copied: ")));
    ASSERT_EQ(entries().size(), 1);
    EXPECT_FALSE(entries()[0].sha256);
}

TEST_F(FileTransferTest, ACopyThatCannotBeOpenedIsNotCompared) {
    photo(kName, "photo");
    meddler.beforeRead = [&](const std::string& path) {
        if (path == destination) std::filesystem::remove(destination);
    };
    runMeddled(copying());
    EXPECT_EQ(verifyFailures, 0);
    EXPECT_THAT(fileLines(), ElementsAre(StartsWith("✓ Copied: ")));
}

TEST_F(FileTransferTest, WithoutVerificationOrHashesNothingIsReadTwice) {
    photo(kName, "photo");
    int reads = 0;
    meddler.beforeRead = [&](const std::string& path) { reads += path == destination ? 1 : 0; };
    auto options = copying();
    options.verifyAfterCopy = false;
    options.computeHashForDuplicates = false;
    runMeddled(options);
    EXPECT_EQ(reads, 0);
    ASSERT_EQ(entries().size(), 1);
    EXPECT_FALSE(entries()[0].sha256);
}

TEST_F(FileTransferTest, SyncedDatesAreThoseThatWereDecided) {
    photo(kName, "photo");
    auto options = copying();
    options.syncFSDates = true;
    run(options);
    struct stat after {};
    ASSERT_EQ(stat(destination.c_str(), &after), 0);
    EXPECT_EQ(after.st_mtim.tv_sec, 1'692'023'421);
}

TEST_F(FileTransferTest, AMoveTakesTheOriginalAway) {
    const auto path = photo(kName, "photo");
    run(moving());
    EXPECT_FALSE(exists(path));
    EXPECT_EQ(contentOf(destination), "photo");
    EXPECT_THAT(fileLines(), ElementsAre("✓ Moved: " + std::string(kName) + " → " + destination));
    ASSERT_EQ(entries().size(), 1);
    EXPECT_EQ(entries()[0].op, UndoEntry::OpType::move);
    EXPECT_EQ(entries()[0].source, path);
    EXPECT_EQ(entries()[0].destination, destination);
    EXPECT_TRUE(entries()[0].sha256);
}

TEST_F(FileTransferTest, AMoveIsHashedForDuplicatesAloneNotForVerification) {
    photo(kName, "photo");
    auto options = moving();
    options.computeHashForDuplicates = false;
    options.verifyAfterCopy = true;
    options.syncFSDates = true;
    run(options);
    ASSERT_EQ(entries().size(), 1);
    EXPECT_FALSE(entries()[0].sha256);
    struct stat after {};
    ASSERT_EQ(stat(destination.c_str(), &after), 0);
    EXPECT_EQ(after.st_mtim.tv_sec, 1'693'569'600);  // its own: a moved file's dates are not changed
}

TEST_F(FileTransferTest, AWeakDateStaysWhereItIs) {
    const auto path = photo("no date.jpg", "photo");
    run(moving());
    EXPECT_THAT(fileLines(), ElementsAre("⚠ Skipped move (weak date score): no date.jpg"));
    EXPECT_EQ(contentOf(path), "photo");
    EXPECT_THAT(harness.state().previewRows.at(0).action, StartsWith("MOVE->/"));
    EXPECT_THAT(filesBelow(dest), ElementsAre());
}

TEST_F(FileTransferTest, AConflictThatSkipsLeavesTheOriginalOfAMove) {
    const auto path = photo(kName, "new");
    folder.write("dest" + std::string(kBelowDest), "old");
    run(moving(ConflictPolicy::skip));
    EXPECT_EQ(contentOf(path), "new");
    EXPECT_EQ(contentOf(destination), "old");
}

TEST_F(FileTransferTest, AnOriginalThatCannotBeRemovedIsToldAndStays) {
    const auto path = photo(kName, "photo");
    meddler.unremovable = path;
    runMeddled(moving());
    EXPECT_THAT(fileLines(), ElementsAre("⚠ Could not delete source after move: Operation not permitted",
                                         "✓ Moved: " + std::string(kName) + " → " + destination));
    EXPECT_EQ(contentOf(path), "photo");
    EXPECT_EQ(contentOf(destination), "photo");
    EXPECT_EQ(entries().size(), 1);
}

TEST_F(FileTransferTest, TheOriginalStaysWhenTheFolderOfTheCopyCannotBeSynced) {
    const auto path = photo(kName, "photo");
    std::filesystem::create_directories(dest + "/2023/08");
    meddler.syncDirectoryError = EIO;
    runMeddled(moving());
    EXPECT_THAT(fileLines(), Contains("⚠ Could not delete source after move: Input/output error"));
    EXPECT_EQ(contentOf(path), "photo");
}

TEST_F(FileTransferTest, AnOriginalThatChangedDuringItsMoveStays) {
    const auto path = photo(kName, "photo");
    std::filesystem::create_directories(dest + "/2023/08");
    meddler.beforeSyncDirectory = [&](const std::string&) {
        folder.write("source/" + std::string(kName), "photo, more");
    };
    runMeddled(moving());
    EXPECT_THAT(fileLines(),
                Contains("⚠ Could not delete source after move: The source changed while it was being moved"));
    EXPECT_EQ(contentOf(path), "photo, more");
}

// A folder of the library sorted into the library: the decided destination of each file is the file.
class SameFileTest : public FileTransferTest {
protected:
    std::string inLibrary(const std::string& content) {
        return folder.write("dest" + std::string(kBelowDest), content);
    }
    void runOverItself(const Options& options) { harness.run({dest + "/2023/08"}, dest, options); }
};

TEST_F(SameFileTest, MovingAFileOntoItselfKeepsIt) {
    for (const auto policy : kConflictPolicies) {
        SCOPED_TRACE(rawText(policy));
        const auto path = inLibrary("only copy");
        harness.observer.allLogLines.clear();
        runOverItself(moving(policy));
        EXPECT_EQ(contentOf(path), "only copy");
        if (policy == ConflictPolicy::skip) continue;
        EXPECT_THAT(fileLines(),
                    Contains("⚠ Could not delete source after move: Source and destination are the same file"));
    }
}

TEST_F(SameFileTest, CopyingAFileOntoItselfWithOverwriteKeepsIt) {
    const auto path = inLibrary("only copy");
    runOverItself(copying(ConflictPolicy::overwrite));
    EXPECT_EQ(contentOf(path), "only copy");
    EXPECT_THAT(fileLines(), ElementsAre("✓ Copied: " + std::string(kName) + " → " + destination));
}

TEST_F(SameFileTest, MovingThroughASymlinkedFolderOntoItselfKeepsIt) {
    const auto path = inLibrary("only copy");
    std::filesystem::create_directory_symlink(dest + "/2023/08", folder / "alias");
    harness.run({folder / "alias"}, dest, moving(ConflictPolicy::overwrite));
    EXPECT_EQ(contentOf(path), "only copy");
    EXPECT_THAT(fileLines(),
                Contains("⚠ Could not delete source after move: Source and destination are the same file"));
}

TEST_F(SameFileTest, MovingOntoAHardLinkOfTheOriginalLosesNothing) {
    const auto path = photo(kName, "linked");
    std::filesystem::create_directories(dest + "/2023/08");
    ASSERT_EQ(link(path.c_str(), destination.c_str()), 0);
    run(moving(ConflictPolicy::rename));
    EXPECT_EQ(contentOf(path), "linked");
    EXPECT_EQ(contentOf(destination), "linked");
    run(moving(ConflictPolicy::overwrite));
    EXPECT_EQ(contentOf(destination), "linked");
}

TEST_F(FileTransferTest, AMissingSourceIsToldOnEitherRoad) {
    const auto path = photo(kName, "photo");
    const auto vanishWhenDecided = [&](std::string_view line) {
        if (line.starts_with("chosen=")) std::filesystem::remove(path);
    };
    harness.observer.onLine = vanishWhenDecided;
    run(copying());
    EXPECT_THAT(fileLines(), ElementsAre("✗ Source missing: exists=false readable=false path=" + path));
    photo(kName, "photo");
    harness.observer.allLogLines.clear();
    run(moving());
    EXPECT_THAT(fileLines(), ElementsAre("✗ Source missing, skipping: " + path));
}

TEST_F(FileTransferTest, AFolderThatCannotBeMadeEndsThatFileAlone) {
    photo(kName, "photo");
    photo("20240101_000000.jpg", "other");
    folder.write("dest/2023", "a file where a folder should be");
    run(copying());
    EXPECT_TRUE(hasLine("✗ Cannot create dest dir [" + dest + "/2023/08]: File exists (domain=POSIX code=17)"));
    EXPECT_TRUE(hasLine("  destExists=false destWritable=true"));
    EXPECT_THAT(filesBelow(dest), Contains("2024/01/20240101_000000.jpg"));
    EXPECT_EQ(harness.state().previewRows.size(), 2);
}

TEST_F(FileTransferTest, SidecarsAreCarriedBesideTheirRawFile) {
    photo("20230814_143021.dng", "raw");
    folder.write("source/20230814_143021.xmp", "sidecar");
    folder.write("source/20230814_143021.pp3", "other sidecar");
    auto options = copying();
    options.includeOther = true;
    options.namingStyle = NamingStyle::recommended;
    run(options);
    const auto monthFolder = dest + "/2023/08 - August/";
    EXPECT_EQ(contentOf(monthFolder + "20230814_143021.xmp"), "sidecar");
    EXPECT_EQ(contentOf(monthFolder + "20230814_143021.pp3"), "other sidecar");
    EXPECT_THAT(fileLines(), Contains("  ↳ Sidecar: 20230814_143021.xmp"));
    EXPECT_THAT(fileLines(), Contains("  ↳ Sidecar: 20230814_143021.pp3"));
    EXPECT_EQ(entries().size(), 3);  // as files of their own, not as sidecars
}

TEST_F(FileTransferTest, ASidecarThatStandsThereAlreadyIsLeftAloneWithoutAWord) {
    photo("20230814_143021.dng", "raw");
    folder.write("source/20230814_143021.xmp", "new");
    folder.write("dest/2023/08 - August/20230814_143021.xmp", "old");
    auto options = copying();
    options.includeOther = true;
    options.namingStyle = NamingStyle::recommended;
    run(options);
    EXPECT_EQ(contentOf(dest + "/2023/08 - August/20230814_143021.xmp"), "old");
    EXPECT_THAT(fileLines(), Not(Contains(StartsWith("  ↳ Sidecar"))));
}

TEST_F(FileTransferTest, WithoutOtherFilesThereAreNoSidecars) {
    photo("20230814_143021.dng", "raw");
    folder.write("source/20230814_143021.xmp", "sidecar");
    run(copying());
    EXPECT_THAT(fileLines(), ElementsAre(StartsWith("✓ Copied: 20230814_143021.dng")));
}

TEST_F(FileTransferTest, AMoveCarriesNoSidecars) {
    photo("20230814_143021.dng", "raw");
    folder.write("source/20230814_143021.xmp", "sidecar");
    auto options = moving();
    options.includeOther = true;
    options.namingStyle = NamingStyle::recommended;
    run(options);
    EXPECT_THAT(fileLines(), Not(Contains(StartsWith("  ↳ Sidecar"))));
    EXPECT_THAT(filesBelow(dest), Contains("2023/08 - August/2023-08-14_143021_20230814_143021.xmp"));
}

TEST_F(FileTransferTest, ASidecarThatCannotBeCopiedIsClaimedAllTheSame) {
    photo("20230814_143021.dng", "raw");
    const auto sidecar = folder.write("source/20230814_143021.xmp", "sidecar");
    meddler.beforeRead = [&](const std::string& path) {
        if (path == sidecar) std::filesystem::remove(sidecar);
    };
    auto options = copying();
    options.includeOther = true;
    options.computeHashForDuplicates = false;
    options.namingStyle = NamingStyle::recommended;
    runMeddled(options);
    EXPECT_THAT(fileLines(), Contains("  ↳ Sidecar: 20230814_143021.xmp"));
    EXPECT_FALSE(exists(dest + "/2023/08 - August/20230814_143021.xmp"));
    EXPECT_FALSE(exists(dest + "/2023/08 - August/20230814_143021.xmp.__partial"));
}

}  // namespace
}  // namespace vellomar
