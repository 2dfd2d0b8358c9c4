#include <QSignalSpy>

#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/desktop/BackgroundWork.h"
#include "ui/desktop/RecordingDesktop.h"
#include "ui/desktop/SpinUntil.h"
#include "ui/inspector/FactsForTests.h"
#include "ui/inspector/Inspector.h"
#include "ui/plan/PlanForTests.h"

namespace vellomar {
namespace {

using testing::planRow;
using testing::spinUntil;

class InspectorTest : public ::testing::Test {
protected:
    void openAndRead(const PlanRow& row) {
        inspector.open(row);
        ASSERT_TRUE(spinUntil([this] { return !inspector.isReading(); }));
    }

    testing::GivenFacts facts;
    testing::RecordingReveal reveal;
    testing::RecordingLinks links;
    BackgroundWork background;
    Inspector inspector{{facts, reveal, links, background}};
};

TEST_F(InspectorTest, ShowsTheRowAtOnceAndTheFileAMomentLater) {
    facts.facts.size = 1'500'000;
    facts.facts.metadata = {{"ISO", "200"}, {"Camera Make", "FUJIFILM"}, {"Brightness", "1.00 EV"}};
    facts.facts.location = "No location found";
    auto row = planRow("/in/trip/IMG_1.jpg", "/out/2023/x.jpg");
    row.decision = "kind=Filename; strong=Y; date=2023-08-14 14:30:21; first=''; tail=''; dest='/out/2023/x.jpg'";
    inspector.open(row);
    EXPECT_TRUE(inspector.isOpen());
    EXPECT_TRUE(inspector.isReading());
    EXPECT_EQ(inspector.fileName(), "IMG_1.jpg");
    EXPECT_EQ(inspector.source(), "/in/trip/IMG_1.jpg");
    EXPECT_EQ(inspector.destination(), "/out/2023/x.jpg");
    EXPECT_EQ(inspector.chosenDate(), "2023-08-14 14:30:21");
    EXPECT_EQ(inspector.chosenSource(), "—");
    EXPECT_FALSE(inspector.isStrong());
    EXPECT_TRUE(inspector.candidates().isEmpty());
    EXPECT_TRUE(inspector.explanation().startsWith("The date was taken from the file system's"));
    EXPECT_TRUE(inspector.thumbnail().isValid());
    EXPECT_TRUE(inspector.fileSize().isEmpty());
    ASSERT_TRUE(spinUntil([this] { return !inspector.isReading(); }));
    EXPECT_EQ(inspector.fileSize(), "1.5 MB");
    ASSERT_EQ(inspector.cameraRows().size(), 2) << "the brightness is not shown";
    EXPECT_EQ(inspector.cameraRows()[0].toMap()["label"], "Camera Make");
    EXPECT_EQ(inspector.cameraRows()[1].toMap()["value"], "200");
    EXPECT_FALSE(inspector.hasGps());
    EXPECT_FALSE(inspector.canOpenMaps());
}

TEST_F(InspectorTest, CameraRowsHaveTheirOrder) {
    const QStringList keys = {"Camera Make",   "Camera Model", "Lens",     "Lens Make", "Dimensions",
                              "Focal Length",  "Aperture",     "Shutter",  "ISO",       "Flash",
                              "White Balance", "Metering",     "Software", "Artist"};
    for (const auto& key : keys)
        facts.facts.metadata.insert(key, "x");
    openAndRead(planRow("/in/a.jpg", "/out/a.jpg"));
    QStringList shown;
    for (const auto& row : inspector.cameraRows())
        shown << row.toMap()["label"].toString();
    EXPECT_EQ(shown, keys);
}

TEST_F(InspectorTest, RanksTheCandidatesOfATextThatHasThem) {
    auto row = planRow("/in/a.jpg", "/out/a.jpg");
    row.decision = "chosen=Filename(70); candidates=[FS(20)=2020; Filename(70)=2023; Odd(250)=1]";
    openAndRead(row);
    EXPECT_TRUE(inspector.isStrong());
    ASSERT_EQ(inspector.candidates().size(), 3);
    EXPECT_EQ(inspector.candidates()[0].toMap()["share"], 1.0) << "no bar is longer than its track";
    EXPECT_EQ(inspector.candidates()[1].toMap()["source"], "Filename");
    EXPECT_DOUBLE_EQ(inspector.candidates()[1].toMap()["share"].toDouble(), 0.7);
}

TEST_F(InspectorTest, OpensThePlaceInMaps) {
    facts.facts.metadata = {{"GPS Latitude", "38.7° N"},
                            {"GPS Longitude", "9.1° W"},
                            {"GPS Latitude Raw", "38.7"},
                            {"GPS Longitude Raw", "-9.1"},
                            {"GPS Altitude", "12 m"}};
    facts.facts.location = "Lisbon, Lisbon, Portugal";
    openAndRead(planRow("/in/a.jpg", "/out/a.jpg"));
    EXPECT_TRUE(inspector.hasGps());
    EXPECT_EQ(inspector.location(), "Lisbon, Lisbon, Portugal");
    EXPECT_EQ(inspector.latitude(), "38.7° N");
    EXPECT_EQ(inspector.longitude(), "9.1° W");
    EXPECT_EQ(inspector.altitude(), "12 m");
    ASSERT_TRUE(inspector.canOpenMaps());
    inspector.openInMaps();
    ASSERT_EQ(links.asked.size(), 1);
    EXPECT_EQ(links.asked[0].front(), "maps://?ll=38.7,-9.1&q=Photo+Location");
}

TEST_F(InspectorTest, WithoutAnAnswerCoordinatesStillShow) {
    facts.facts.metadata = {{"GPS Latitude", "99.0° N"}, {"GPS Longitude", "9.1° W"}};
    facts.facts.location = "Could not resolve location";
    openAndRead(planRow("/in/a.jpg", "/out/a.jpg"));
    EXPECT_TRUE(inspector.hasGps());
    EXPECT_EQ(inspector.location(), "Could not resolve location");
    EXPECT_EQ(inspector.latitude(), "99.0° N");
    EXPECT_FALSE(inspector.canOpenMaps());
}

TEST_F(InspectorTest, RevealsTheSource) {
    openAndRead(planRow("/in/a\xff.jpg", "/out/a.jpg"));
    inspector.revealSource();
    EXPECT_EQ(reveal.paths, std::vector<std::string>{"/in/a\xff.jpg"}) << "byte for byte";
}

TEST_F(InspectorTest, WhatIsReadForAnEarlierRowComesTooLate) {
    facts.facts.size = 1'000;
    inspector.open(planRow("/in/a.jpg", "/out/a.jpg"));
    inspector.dismiss();
    EXPECT_FALSE(inspector.isOpen());
    inspector.open(planRow("/in/b.jpg", "/out/b.jpg"));
    const QSignalSpy changed(&inspector, &Inspector::factsChanged);
    ASSERT_TRUE(spinUntil([&] { return facts.reads == 2 && !inspector.isReading(); }));
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(InspectorTest, EachRowStartsOnTheFirstTab) {
    openAndRead(planRow("/in/a.jpg", "/out/a.jpg"));
    inspector.setTab(2);
    inspector.setTab(3);
    inspector.setTab(-1);
    EXPECT_EQ(inspector.tab(), 2);
    openAndRead(planRow("/in/b.jpg", "/out/b.jpg"));
    EXPECT_EQ(inspector.tab(), 0);
}

}  // namespace
}  // namespace vellomar
