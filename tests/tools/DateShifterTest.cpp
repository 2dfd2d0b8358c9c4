#include <filesystem>
#include <fstream>
#include <thread>

#include <gmock/gmock.h>
#include <unistd.h>

#include "platform/LinuxFileSystem.h"
#include "support/EngineHarness.h"
#include "support/FakeExifTool.h"
#include "support/MediaFiles.h"
#include "support/TemporaryFolder.h"
#include "tools/DateShifter.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using testing::FakeExifTool;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// Until the file "go" stands beside it.
constexpr const char* kWaitsForGo = "touch \"$here/busy\"; until [ -e \"$here/go\" ]; do sleep 0.01; done";

// Until ExifTool is at work on the first file.
void waitUntilBusy(const FakeExifTool& tool) {
    while (!testing::exists(tool / "busy"))
        std::this_thread::yield();
}

void letGo(const FakeExifTool& tool) {
    const std::ofstream go(tool / "go");
}

class DateShifterTest : public ::testing::Test {
protected:
    void use(const ExifUtils::ExifTool& exifTool) {
        shifter = std::make_unique<DateShifter>(DateShifter::Services{mainActor, fileSystem, exifTool, sleepInhibitor},
                                                [this] {
                                                    statuses.push_back(shifter->state().statusText);
                                                    fractions.push_back(shifter->state().progress);
                                                    mostHolds = std::max(mostHolds, sleepInhibitor.holds());
                                                });
    }

    void waitForEnd() {
        mainActor.runUntil([&] { return !shifter->state().isRunning; });
    }

    // A whole shift.
    void shift(const std::vector<std::string>& folders, const DateShift& by) {
        shifter->applyShift(folders, by);
        EXPECT_TRUE(shifter->state().isRunning);
        waitForEnd();
    }

    // A tag as the real ExifTool reads it.
    std::string tagOf(const std::string& path, const std::string& tag) {
        const std::vector<std::string> arguments = {"-" + tag, path};
        const auto read = realTool.runExifToolJSON(arguments, std::chrono::minutes(1));
        if (!read || read->size() != 1 || !read->front().contains(tag)) return "none";
        return read->front().at(tag).get<std::string>();
    }

    std::string makeDated(const std::string& name) {
        return makeImage(folder, name,
                         {"EXIF:DateTimeOriginal=2023:08:14 14:30:21", "EXIF:CreateDate=2023:08:14 14:30:22",
                          "EXIF:ModifyDate=2023:08:14 14:30:23"});
    }

    testing::TemporaryFolder folder;
    LinuxFileSystem fileSystem;
    ExifUtils::ExifTool realTool{fileSystem};
    testing::QueueMainActor mainActor;
    testing::CountingSleepInhibitor sleepInhibitor;
    std::unique_ptr<DateShifter> shifter;
    std::vector<std::string> statuses;  // of each change
    std::vector<double> fractions;
    int mostHolds = 0;
};

TEST_F(DateShifterTest, StartsExifToolForOneFileAfterTheOther) {
    folder.write("a/1.jpg");
    folder.write("b/2.mov");
    folder.write("b/note.txt");
    const FakeExifTool tool(
        "[ -e \"$here/busy\" ] && touch \"$here/overlap\"; touch \"$here/busy\"; sleep 0.05; rm \"$here/busy\"");
    use(tool.tool());
    shift({folder / "a", folder / "b"}, {1, 6});
    EXPECT_THAT(tool.calls(), ElementsAre(ElementsAre("-api", "LargeFileSupport=1", "-AllDates+=0:0:0 30:0:0",
                                                      "-overwrite_original", folder / "a/1.jpg"),
                                          ElementsAre("-api", "LargeFileSupport=1", "-AllDates+=0:0:0 30:0:0",
                                                      "-overwrite_original", folder / "b/2.mov")));
    EXPECT_FALSE(testing::exists(tool / "overlap")) << "two ran at once";
}

TEST_F(DateShifterTest, TellsOfEachFileAndOfTheEnd) {
    folder.write("a/1.jpg");
    folder.write("b/2.jpg");
    const FakeExifTool tool("");
    use(tool.tool());
    shift({folder / "a", folder / "b"}, {0, -1});
    EXPECT_THAT(statuses, ElementsAre("", "1/2 → 1.jpg", "2/2 → 2.jpg", "Done — shifted 2 files by -1 hour"));
    EXPECT_THAT(fractions, ElementsAre(0, 0.5, 1, 1));
    EXPECT_EQ(shifter->state().done, 2);
    EXPECT_EQ(shifter->state().files, 2);
}

TEST_F(DateShifterTest, ByNothingGoesThroughTheFilesAndStartsNothing) {
    folder.write("a/1.jpg");
    folder.write("b/2.jpg");
    const FakeExifTool tool("");
    use(tool.tool());
    shift({folder / "a", folder / "b"}, {1, -24});
    EXPECT_THAT(tool.calls(), IsEmpty());
    EXPECT_THAT(statuses, ElementsAre("", "1/2 → 1.jpg", "2/2 → 2.jpg", "Done — shifted 2 files by 0 hours"));
}

TEST_F(DateShifterTest, WithoutFilesIsDoneAtOnce) {
    const FakeExifTool tool("");
    use(tool.tool());
    shift({folder / "missing"}, {0, 5});
    EXPECT_THAT(statuses, ElementsAre("", "Done — shifted 0 files by +5 hours"));
    EXPECT_THAT(fractions, ElementsAre(0, 1));
}

TEST_F(DateShifterTest, WithoutExifToolClaimsSuccess) {
    const auto file = makeDated("a.jpg");
    const ExifUtils::ExifTool none(fileSystem, {.resourceFolder = "", .executables = {"/nowhere/exiftool"}});
    use(none);
    shift({folder.path()}, {0, 5});
    EXPECT_EQ(shifter->state().statusText, "Done — shifted 1 file by +5 hours");
    EXPECT_EQ(tagOf(file, "DateTimeOriginal"), "2023:08:14 14:30:21");
}

TEST_F(DateShifterTest, CountsAFailedFileAsDoneAndGoesOn) {
    folder.write("a.jpg", "no image");
    folder.write("b.jpg", "none either");
    const FakeExifTool tool("exit 1");
    use(tool.tool());
    shift({folder.path()}, {0, 5});
    EXPECT_THAT(tool.calls(), SizeIs(2));
    EXPECT_EQ(shifter->state().statusText, "Done — shifted 2 files by +5 hours");
}

TEST_F(DateShifterTest, ShiftsTheDatesInTheFilesThemselves) {
    folder.makeFolder("in");
    const auto file = makeDated("in/a.jpg");
    use(realTool);
    shift({folder.path()}, {1, 6});
    EXPECT_EQ(tagOf(file, "DateTimeOriginal"), "2023:08:15 20:30:21");
    EXPECT_EQ(tagOf(file, "CreateDate"), "2023:08:15 20:30:22");
    EXPECT_EQ(tagOf(file, "ModifyDate"), "2023:08:15 20:30:23");
    shift({folder.path()}, {-2, 18});
    EXPECT_EQ(tagOf(file, "DateTimeOriginal"), "2023:08:14 14:30:21") << "the way back is the opposite amount";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "in"), {}), 1) << "no copy is left";
}

TEST_F(DateShifterTest, ShiftsByTheLargestAmountThatCanBeSet) {
    const auto file = makeDated("a.jpg");
    use(realTool);
    shift({folder.path()}, {-9999, -9999});
    EXPECT_EQ(tagOf(file, "DateTimeOriginal"), "1995:02:06 23:30:21");
    shift({folder.path()}, {9999, 9999});
    EXPECT_EQ(tagOf(file, "DateTimeOriginal"), "2023:08:14 14:30:21");
}

TEST_F(DateShifterTest, ShiftsFilesOfWhateverNameOnce) {
    const std::vector<std::string> names = {"-rf.jpg",        "-all=.jpg",   "@list.jpg",       "two  blanks .jpg",
                                            "\"quoted\".jpg", "it's.jpg",    "line\nbreak.jpg", "back\\slash.jpg",
                                            "%d%f.jpg",       "$HOME.jpg",   "*?[a].jpg",       "\xff\xfe.jpg",
                                            "Ünïcödé.JPG",    ".hidden.jpg", "a=b.jpg",         "#.jpg"};
    const auto made = makeDated("made.jpg");
    for (const auto& name : names)
        std::filesystem::copy_file(made, folder / name);
    std::filesystem::remove(made);
    use(realTool);
    shift({folder.path()}, {0, 5});
    EXPECT_EQ(shifter->state().done, names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        // Read under a plain name, so that reading proves nothing but the content.
        const auto plain = folder / ("plain" + std::to_string(i) + ".jpg");
        std::filesystem::rename(folder / names[i], plain);
        EXPECT_EQ(tagOf(plain, "DateTimeOriginal"), "2023:08:14 19:30:21") << names[i];
    }
}

TEST_F(DateShifterTest, ShiftsAFileOnceHoweverOftenItIsFound) {
    folder.makeFolder("in");
    const auto file = makeDated("in/a.jpg");
    ASSERT_EQ(symlink((folder / "in").c_str(), (folder / "link").c_str()), 0);
    use(realTool);
    shift({folder.path(), folder / "in", folder / "link", folder / "in/."}, {0, 1});
    EXPECT_EQ(shifter->state().statusText, "Done — shifted 1 file by +1 hour");
    EXPECT_EQ(tagOf(file, "DateTimeOriginal"), "2023:08:14 15:30:21");
}

TEST_F(DateShifterTest, ShiftsEachNameOfAFileOnce) {
    const auto file = makeDated("a.jpg");
    ASSERT_EQ(link(file.c_str(), (folder / "b.jpg").c_str()), 0);
    use(realTool);
    shift({folder.path()}, {0, 1});
    EXPECT_EQ(tagOf(file, "DateTimeOriginal"), "2023:08:14 15:30:21");
    EXPECT_EQ(tagOf(folder / "b.jpg", "DateTimeOriginal"), "2023:08:14 15:30:21");
}

TEST_F(DateShifterTest, ShiftsVideosToo) {
    const auto file = makeVideo(folder, "a.mp4", {"creation_time=2021-03-04T05:06:07Z"});
    use(realTool);
    shift({folder.path()}, {0, 2});
    EXPECT_EQ(tagOf(file, "CreateDate"), "2021:03:04 07:06:07");
}

TEST_F(DateShifterTest, StartsNoSecondShiftBesideTheFirst) {
    folder.write("a.jpg");
    const FakeExifTool tool(kWaitsForGo);
    use(tool.tool());
    shifter->applyShift({folder.path()}, {0, 1});
    shifter->applyShift({folder.path()}, {0, 2});
    letGo(tool);
    waitForEnd();
    EXPECT_THAT(tool.calls(), SizeIs(1));
    EXPECT_EQ(shifter->state().statusText, "Done — shifted 1 file by +1 hour");
    shift({folder.path()}, {0, 2});
    EXPECT_THAT(tool.calls(), SizeIs(2)) << "when that is done another one is possible";
}

TEST_F(DateShifterTest, StopsBehindTheFileUnderWay) {
    for (int i = 0; i < 5; ++i)
        folder.write(std::to_string(i) + ".jpg");
    const FakeExifTool tool(kWaitsForGo + std::string("; touch \"$here/ended\""));
    use(tool.tool());
    shifter->applyShift({folder.path()}, {0, 5});
    waitUntilBusy(tool);
    shifter->stop();
    EXPECT_TRUE(shifter->state().isRunning);
    letGo(tool);
    waitForEnd();
    EXPECT_THAT(tool.calls(), SizeIs(1));
    EXPECT_TRUE(testing::exists(tool / "ended"));
    EXPECT_EQ(shifter->state().statusText, "Stopped — shifted 1 of 5 files by +5 hours. No other file was changed.");
    EXPECT_EQ(shifter->state().done, 1);
    EXPECT_EQ(shifter->state().files, 5);
}

TEST_F(DateShifterTest, StoppedBehindItsLastFileItIsDone) {
    folder.write("a.jpg");
    const FakeExifTool tool(kWaitsForGo);
    use(tool.tool());
    shifter->applyShift({folder.path()}, {0, 5});
    waitUntilBusy(tool);
    shifter->stop();
    letGo(tool);
    waitForEnd();
    EXPECT_EQ(shifter->state().statusText, "Done — shifted 1 file by +5 hours");
}

TEST_F(DateShifterTest, DestroyedItLetsTheFileUnderWayComeToItsEnd) {
    for (int i = 0; i < 5; ++i)
        folder.write(std::to_string(i) + ".jpg");
    const FakeExifTool tool(kWaitsForGo + std::string("; touch \"$here/ended\""));
    use(tool.tool());
    shifter->applyShift({folder.path()}, {0, 5});
    waitUntilBusy(tool);
    std::jthread later([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        letGo(tool);
    });
    shifter.reset();
    EXPECT_TRUE(testing::exists(tool / "ended"));
    mainActor.runPending();
    EXPECT_THAT(tool.calls(), SizeIs(1));
    EXPECT_THAT(statuses, ElementsAre("")) << "nothing is told to nobody";
}

TEST_F(DateShifterTest, KeepsTheDesktopAwakeMeanwhile) {
    folder.write("a.jpg");
    const FakeExifTool tool("");
    use(tool.tool());
    EXPECT_EQ(sleepInhibitor.holds(), 0);
    shift({folder.path()}, {0, 5});
    EXPECT_EQ(mostHolds, 1);
    EXPECT_EQ(sleepInhibitor.holds(), 0);
    EXPECT_EQ(sleepInhibitor.lastReason(), "Shifting dates");
}

}  // namespace
}  // namespace vellomar
