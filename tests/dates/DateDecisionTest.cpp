#include <chrono>
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dates/DateDecision.h"
#include "dates/FakeMetadataReader.h"
#include "dates/LocalInstant.h"
#include "dates/PretendFileSystem.h"
#include "platform/LinuxFileSystem.h"
#include "support/ManualClock.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::local;
using ::testing::StartsWith;

class SwitchedDefaults final : public UserDefaults {
public:
    [[nodiscard]] bool secretFloppyMode() const override { return floppy; }
    bool floppy = false;
};

class DateDecision : public ::testing::Test {
protected:
    DateDecision() { options.computeHashForDuplicates = false; }

    DecisionResult decide(const std::string& path, FileSystem& disk, MetadataReader* metadata) {
        return decideFile({disk, clock, defaults, metadata, folderEvidence, siblingYears},
                          {path, sourceRoot, dest, options, exifDates, exifCameras, rules, mayHaveDuplicate});
    }
    DecisionResult decide(const std::string& path) { return decide(path, fileSystem, &reader); }

    void addSibling(const std::string& name, int year) {
        fileSystem.listings["/card"].push_back(name);
        reader.images["/card/" + name] = {local(year, 3, 1, 12), "EXIF DateTimeOriginal"};
    }

    testing::PretendFileSystem fileSystem;
    testing::ManualClock clock{local(2026, 5, 28, 12)};
    SwitchedDefaults defaults;
    testing::FakeMetadataReader reader;
    FolderEvidenceCache folderEvidence;
    SiblingYears siblingYears;
    std::string sourceRoot = "/card";
    std::string dest = "/Lib";
    Options options;
    ExifDates exifDates;
    ExifCameras exifCameras;
    std::vector<FolderRenameRule> rules;
    bool mayHaveDuplicate = true;
};

// What comes behind "kind=" in a decision text.
std::string kindOf(const DecisionResult& result) {
    const std::string_view text = result.decision;
    const auto begin = std::string_view("kind=").size();
    return std::string(text.substr(begin, text.find("; ") - begin));
}

TEST_F(DateDecision, TheExplanationOfAConfirmedDateIsComplete) {
    const std::string path = "/card/Vacation/Day 1/20230814_143021.JPG";
    dest = "/Volumes/Library";
    reader.images[path] = {local(2023, 8, 14, 14, 30, 21), "EXIF DateTimeOriginal"};
    reader.cameras[path] = "Canon EOS R5";
    fileSystem.setDates(path, local(2023, 9, 1, 10, 2, 11), local(2023, 9, 1, 10, 2, 11));
    options.conflictPolicy = ConflictPolicy::skip;

    const auto result = decide(path);

    EXPECT_EQ(result.decision,
              "kind=EXIF DateTimeOriginal+confirmed; strong=Y; date=2023-08-14 14:30:21; first='Vacation'; "
              "tail='Vacation\\Day 1'; "
              "dest='/Volumes/Library/2023/08 - August/Vacation/2023-08-14_143021_20230814_143021.jpg'");
    EXPECT_EQ(
        result.decisionLog,
        "chosen=EXIF DateTimeOriginal+confirmed(100); candidates=[EXIF DateTimeOriginal+confirmed(100)=2023-08-14 "
        "14:30:21; Filename(70)=2023-08-14 14:30:21; FS ModificationDate(20)=2023-09-01 10:02:11; FS "
        "CreationDate(15)=2023-09-01 10:02:11]");
    EXPECT_EQ(result.finalDest, "/Volumes/Library/2023/08 - August/Vacation/2023-08-14_143021_20230814_143021.jpg");
    EXPECT_EQ(result.resolvedDateStr, "2023-08-14 14:30:21");
    EXPECT_EQ(result.dateUsed, local(2023, 8, 14, 14, 30, 21));
    EXPECT_TRUE(result.isStrongDate);
    EXPECT_THAT(result.meaningfulTail, ElementsAre("Vacation", "Day 1"));
    EXPECT_EQ(result.sha256, std::nullopt);
    EXPECT_EQ(result.conflictPolicy, ConflictPolicy::skip);
    EXPECT_EQ(result.cameraModel, "Canon EOS R5");
}

TEST_F(DateDecision, WithoutAnyCandidateItIsNowAndWeak) {
    options.storageIsNetwork = true;
    addSibling("a.jpg", 2019);
    const auto result = decide("/card/IMG_4821.JPG");
    EXPECT_EQ(result.decision,
              "kind=Fallback Now; strong=N; date=2026-05-28 12:00:00; first=''; tail=''; "
              "dest='/Lib/2026/05 - May/2026-05-28_120000_IMG_4821.jpg'");
    EXPECT_EQ(result.decisionLog, "chosen=Fallback Now(10); candidates=[]");
    EXPECT_EQ(result.dateUsed, clock.now());
    EXPECT_FALSE(result.isStrongDate);
    EXPECT_THAT(result.meaningfulTail, IsEmpty());
    EXPECT_EQ(result.cameraModel, "—");
    EXPECT_THAT(fileSystem.calls, IsEmpty());
    EXPECT_THAT(reader.calls, IsEmpty());
}

TEST_F(DateDecision, NothingIsEscaped) {
    options.storageIsNetwork = true;
    EXPECT_THAT(decide("/card/It's; here/\xff\x22.jpg").decision,
                EndsWith("; first='It's; here'; tail='It's; here'; "
                         "dest='/Lib/2026/05 - May/It's; here/2026-05-28_120000_\xff\x22.jpg'"));
}

TEST_F(DateDecision, NamesAreStrongAndFoldersAreNot) {
    struct Case {
        std::string path;
        std::string_view kind;
        bool strong;
    };
    const Case cases[] = {
        {"/card/2023-08-14.jpg", "Filename", true},
        {"/card/20230814.jpg", "Filename", true},
        {"/card/1691234567.jpg", "Filename-UnixTS", true},
        {"/card/IMG-20230814-WA0001.jpg", "Filename-WhatsApp", true},
        {"/card/signal-2023-08-14-14-30-21.jpg", "Filename-Signal", true},
        {"/card/2023-08-14 at 2.30.21 PM.png", "Filename-Screenshot", true},
        {"/card/2012/08/a.jpg", "Folder-derived Y/M", false},
        {"/card/2012/a.jpg", "Folder-derived Y", false},
    };
    for (const auto& [path, kind, strong] : cases) {
        SCOPED_TRACE(path);
        const auto result = decide(path);
        EXPECT_EQ(kindOf(result), kind);
        EXPECT_EQ(result.isStrongDate, strong);
        EXPECT_THAT(result.decision, HasSubstr(strong ? "; strong=Y; " : "; strong=N; "));
    }
}

TEST_F(DateDecision, ASidecarThatANameConfirmsWinsTheTieWithExifTool) {
    const std::string path = "/card/20230814_143021.jpg";
    reader.sidecars[path] = {local(2023, 8, 14, 14, 30, 20), "XMP Sidecar", 97};
    exifDates[path] = {local(2023, 8, 14, 14, 30, 21), "ExifTool DateTimeOriginal", 100};
    const auto result = decide(path);
    EXPECT_EQ(kindOf(result), "XMP Sidecar+confirmed");
    EXPECT_THAT(result.decisionLog, StartsWith("chosen=XMP Sidecar+confirmed(100); candidates=[XMP "
                                               "Sidecar+confirmed(100)=2023-08-14 14:30:20; ExifTool "
                                               "DateTimeOriginal(100)=2023-08-14 14:30:21; Filename(70)="));
}

TEST_F(DateDecision, ExifToolsBestDateNeedsNoConfirmation) {
    const std::string path = "/card/a.jpg";
    exifDates[path] = {local(2023, 8, 14), "ExifTool DateTimeOriginal", 100};
    reader.images[path] = {local(2022, 1, 1), "EXIF DateTimeOriginal"};
    EXPECT_EQ(decide(path).decisionLog,
              "chosen=ExifTool DateTimeOriginal(100); candidates=[ExifTool DateTimeOriginal(100)=2023-08-14 00:00:00; "
              "EXIF DateTimeOriginal(95)=2022-01-01 00:00:00]");
}

TEST_F(DateDecision, ExifToolsFileDateWinsTheTieWithTheFileDate) {
    exifDates["/card/a.jpg"] = {local(2023, 8, 14), "ExifTool FileModifyDate", 20};
    fileSystem.setDates("/card/a.jpg", std::nullopt, local(2023, 8, 15));
    EXPECT_EQ(kindOf(decide("/card/a.jpg")), "ExifTool FileModifyDate");
}

TEST_F(DateDecision, ADateOfTomorrowCanWinAndALaterOneCannot) {
    const std::string path = "/card/20230814.jpg";
    reader.images[path] = {clock.now() + 24h - 1s, "EXIF DateTimeOriginal"};
    EXPECT_EQ(kindOf(decide(path)), "EXIF DateTimeOriginal");
    reader.images[path] = {clock.now() + 24h, "EXIF DateTimeOriginal"};
    const auto result = decide(path);
    EXPECT_EQ(kindOf(result), "Filename");
    EXPECT_EQ(result.decisionLog, "chosen=Filename(70); candidates=[Filename(70)=2023-08-14 00:00:00]");
}

TEST_F(DateDecision, TheEpochIsNoShootDateAndASecondLaterIs) {
    const std::string path = "/card/20230814.jpg";
    reader.images[path] = {Instant(), "EXIF DateTimeOriginal"};
    EXPECT_EQ(kindOf(decide(path)), "Filename");
    reader.images[path] = {Instant() + 1s, "EXIF DateTimeOriginal"};
    EXPECT_EQ(kindOf(decide(path)), "EXIF DateTimeOriginal");
}

TEST_F(DateDecision, AFolderBeatsFileDatesAndSuspectsThoseFarFromIt) {
    const std::string path = "/card/Fotos 2012/a.jpg";
    fileSystem.setDates(path, local(2021, 3, 1), local(2021, 3, 1));
    EXPECT_EQ(decide(path).decisionLog,
              "chosen=Folder-derived Y(35); candidates=[Folder-derived Y(35)=2012-06-15 12:00:00; FS "
              "CreationDate+suspect(10)=2021-03-01 00:00:00; FS ModificationDate+suspect(10)=2021-03-01 00:00:00]");
    fileSystem.setDates(path, local(2013, 3, 1), local(2013, 3, 1));
    EXPECT_EQ(decide(path).decisionLog,
              "chosen=Folder-derived Y(35); candidates=[Folder-derived Y(35)=2012-06-15 12:00:00; FS "
              "ModificationDate(20)=2013-03-01 00:00:00; FS CreationDate(15)=2013-03-01 00:00:00]");
}

TEST_F(DateDecision, AFolderYearTooEarlyToBeADateSuspectsNothing) {
    const std::string path = "/card/Marzo 1905/a.jpg";
    fileSystem.setDates(path, std::nullopt, local(2021, 3, 1));
    EXPECT_EQ(kindOf(decide(path)), "FS ModificationDate");
}

TEST_F(DateDecision, NeighboursRescueAFileWithNothingBetterThanAFileDate) {
    fileSystem.setDates("/card/a.jpg", std::nullopt, local(2021, 3, 1));
    fileSystem.listings["/card"] = {"a.jpg", "notes.txt"};
    addSibling("b.jpg", 2019);
    const auto result = decide("/card/a.jpg");
    EXPECT_EQ(result.decision,
              "kind=Sibling-derived Y; strong=N; date=2019-06-15 12:00:00; first=''; tail=''; "
              "dest='/Lib/2019/06 - June/2019-06-15_120000_a.jpg'");
    EXPECT_EQ(result.decisionLog,
              "chosen=Sibling-derived Y(30); candidates=[FS ModificationDate(20)=2021-03-01 00:00:00]");
    EXPECT_EQ(result.dateUsed, local(2019, 6, 15, 12));
}

TEST_F(DateDecision, NeighboursRescueAFileWithoutAnyDate) {
    addSibling("b.jpg", 2019);
    EXPECT_EQ(decide("/card/a.txt").decisionLog, "chosen=Sibling-derived Y(30); candidates=[]");
}

TEST_F(DateDecision, NeighboursAreNotAskedWhenTheFolderTellsAYear) {
    fileSystem.listings["/card/2012"] = {"b.jpg"};
    EXPECT_EQ(kindOf(decide("/card/2012/a.jpg")), "Folder-derived Y");
    EXPECT_THAT(fileSystem.calls, ElementsAre("status /card/2012/a.jpg"));
}

TEST_F(DateDecision, NeighboursAreAskedAtTwentyButNotAbove) {
    addSibling("b.jpg", 2019);
    exifDates["/card/a.jpg"] = {local(2023, 8, 14), "ExifTool FileModifyDate", 20};
    EXPECT_EQ(kindOf(decide("/card/a.jpg")), "Sibling-derived Y");
    exifDates["/card/a.jpg"].score = 21;
    EXPECT_EQ(kindOf(decide("/card/a.jpg")), "ExifTool FileModifyDate");
}

TEST_F(DateDecision, NeighboursThatLendNothingChangeNothing) {
    fileSystem.setDates("/card/a.jpg", std::nullopt, local(2021, 3, 1));
    EXPECT_EQ(kindOf(decide("/card/a.jpg")), "FS ModificationDate") << "the folder cannot be listed";
    fileSystem.listings["/card"] = {"a.jpg", "b.jpg"};
    EXPECT_EQ(kindOf(decide("/card/a.jpg")), "FS ModificationDate") << "no neighbour is dated";
    addSibling("c.jpg", 2019);
    fileSystem.listingsBreakOff = true;
    EXPECT_EQ(kindOf(decide("/card/a.jpg")), "FS ModificationDate") << "the listing breaks off";
}

TEST_F(DateDecision, WithoutAReaderTheFolderIsNotListed) {
    addSibling("b.jpg", 2019);
    fileSystem.setDates("/card/a.jpg", std::nullopt, local(2021, 3, 1));
    const auto result = decide("/card/a.jpg", fileSystem, nullptr);
    EXPECT_EQ(kindOf(result), "FS ModificationDate");
    EXPECT_EQ(result.cameraModel, "—");
    EXPECT_THAT(fileSystem.calls, ElementsAre("status /card/a.jpg"));
}

TEST_F(DateDecision, ANeighbourInTheRootFolderIsFound) {
    sourceRoot = "/";
    fileSystem.listings["/"] = {"a.jpg", "b.jpg"};
    reader.images["/a.jpg"] = {Instant(), "EXIF DateTimeOriginal"};
    reader.images["/b.jpg"] = {local(2019, 3, 1), "EXIF DateTimeOriginal"};
    EXPECT_EQ(kindOf(decide("/a.jpg")), "Sibling-derived Y");
}

TEST_F(DateDecision, RulesAndFloppyModeTakeEffectFromFileToFile) {
    options.storageIsNetwork = true;
    EXPECT_THAT(decide("/card/Floppy Dorno/a.jpg").meaningfulTail, ElementsAre("Floppy Dorno"));
    defaults.floppy = true;
    EXPECT_THAT(decide("/card/Floppy Dorno/b.jpg").meaningfulTail, ElementsAre("Floppy"));
    rules.emplace_back();
    rules.back().matchText = "floppy";
    const auto result = decide("/card/Floppy Dorno/c.jpg");
    EXPECT_THAT(result.meaningfulTail, ElementsAre(""));
    EXPECT_THAT(result.decision, EndsWith("; first=''; tail=''; dest='/Lib/2026/05 - May/2026-05-28_120000_c.jpg'"));
}

TEST_F(DateDecision, MonthWordsCountOnlyWhereTheyAreWanted) {
    options.storageIsNetwork = true;
    EXPECT_EQ(decide("/card/Aug 2019/a.jpg").resolvedDateStr, "2019-08-15 12:00:00");
    options.parseMonthWords = false;
    EXPECT_EQ(decide("/card/Aug 2019/a.jpg").resolvedDateStr, "2019-06-15 12:00:00");
}

TEST_F(DateDecision, ExifToolsCameraCountsOnNetworkStorage) {
    options.storageIsNetwork = true;
    exifCameras["/card/a.jpg"] = "Canon EOS R5";
    EXPECT_EQ(decide("/card/a.jpg").cameraModel, "Canon EOS R5");
}

// Of the content "abc".
constexpr const char* kDigestOfAbc = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";

class DecisionDigest : public DateDecision {
protected:
    DecisionDigest() {
        options.computeHashForDuplicates = true;
        sourceRoot = folder.path();
    }

    std::optional<std::string> digest() { return decide(path, disk, nullptr).sha256; }

    testing::TemporaryFolder folder;
    std::string path = folder.write("20230814_143021.jpg", "abc");
    LinuxFileSystem disk;
};

TEST_F(DecisionDigest, IsTakenWhereItIsAskedFor) {
    struct Case {
        bool computeHash;
        bool network;
        bool dryRun;
        bool taken;
    };
    constexpr Case kCases[] = {
        {true, false, true, true},   {true, false, false, true},  {true, true, false, true},
        {true, true, true, false},   {false, false, true, false}, {false, false, false, false},
        {false, true, false, false}, {false, true, true, false},
    };
    for (const auto& [computeHash, network, dryRun, taken] : kCases) {
        SCOPED_TRACE(::testing::Message() << "hash " << computeHash << ", network " << network << ", dry " << dryRun);
        options.computeHashForDuplicates = computeHash;
        options.storageIsNetwork = network;
        options.dryRun = dryRun;
        EXPECT_EQ(digest(), taken ? std::optional<std::string>(kDigestOfAbc) : std::nullopt);
    }
}

TEST_F(DecisionDigest, IsNotTakenOfAFileThatCanHaveNoDuplicate) {
    mayHaveDuplicate = false;
    EXPECT_EQ(digest(), std::nullopt);
}

TEST_F(DecisionDigest, OfAFileThatIsGoneIsAbsent) {
    path = folder / "20230814_143022.jpg";
    EXPECT_EQ(digest(), std::nullopt);
}

TEST_F(DecisionDigest, ARealFileIsDecidedFromItsRealDates) {
    const auto undated = folder.write("a.txt");
    ASSERT_TRUE(disk.setModificationDate(undated, local(2021, 3, 1, 4, 5, 6)).has_value());
    const auto result = decide(undated, disk, nullptr);
    EXPECT_THAT(result.decisionLog, HasSubstr("FS ModificationDate("));
    EXPECT_THAT(result.decisionLog, HasSubstr("=2021-03-01 04:05:06"));
}

TEST_F(DecisionDigest, ARealFolderLendsItsYear) {
    const auto undated = folder.write("a.txt");
    const auto neighbour = folder.write("b.jpg");
    ASSERT_TRUE(disk.setModificationDate(undated, local(2021, 3, 1)).has_value());
    reader.images[neighbour] = {local(2019, 3, 1), "EXIF DateTimeOriginal"};
    EXPECT_EQ(kindOf(decide(undated, disk, &reader)), "Sibling-derived Y");
}

TEST(RelativeFolder, IsWhatStandsBetweenTheSourceAndTheName) {
    struct Case {
        std::string_view path;
        std::string_view sourceRoot;
        std::string_view folder;
    };
    constexpr Case kCases[] = {
        {"/card/a.jpg", "/card", ""},
        {"/card/x/a.jpg", "/card", "x"},
        {"/card/x/y z/a.jpg", "/card", "x/y z"},
        {"/card/x/a.jpg", "/card/", "x"},
        {"/card/x/a.jpg", "/other", "card/x"},
        {"/card/x/a.jpg", "", "card/x"},
        {"/card/x/a.jpg", "/", ""},
        {"/a.jpg", "/", ""},
        {"/a/b/a/c.jpg", "/a", "b"},
        {"/a/bar/album/x.jpg", "/a", "barlbum"},
        {"/card/x\\y/a.jpg", "/card", "x\\y"},
        {"/card/\\x/a.jpg", "/card", "x"},
        {"/card/\xff/a.jpg", "/card", "\xff"},
        {"/card", "/card", ""},
    };
    for (const auto& [path, sourceRoot, folder] : kCases) {
        SCOPED_TRACE(::testing::Message() << path << " below " << sourceRoot);
        EXPECT_EQ(relativeFolderOf(path, sourceRoot), folder);
    }
}

}  // namespace
}  // namespace vellomar
