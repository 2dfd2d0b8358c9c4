#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QUrl>
#include <filesystem>
#include <memory>

#include <gmock/gmock.h>

#include "platform/LinuxFileSystem.h"
#include "support/ScopedTimeZone.h"
#include "support/TemporaryFolder.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/RecordingDesktop.h"
#include "ui/duplicates/DuplicateFilesModel.h"
#include "ui/duplicates/DuplicatesForTests.h"
#include "ui/plan/PlanForTests.h"
#include "ui/thumbnails/ThumbnailAddress.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using testing::planRow;

class DuplicateFilesModelTest : public ::testing::Test {
protected:
    DuplicateFilesModelTest() {
        state.previewRows = {planRow(in("a.jpg"), out("a.jpg")), planRow(in("b.jpg"), out("b.jpg")),
                             planRow(in("other.jpg"), out("b.jpg"))};
        state.duplicateGroups = {{out("a.jpg"), {out("b.jpg"), out("c.jpg")}}, {out("x.jpg"), {out("y.jpg")}}};
        model.readSources();
        model.setGroup(0);
    }

    [[nodiscard]] std::string in(const std::string& name) const { return folder / ("in/" + name); }
    [[nodiscard]] std::string out(const std::string& name) const { return folder / ("out/" + name); }

    [[nodiscard]] QVariant value(int row, DuplicateFilesModel::Role role) const { return model.index(row).data(role); }

    [[nodiscard]] QString size(int row) const { return value(row, DuplicateFilesModel::sizeRole).toString(); }

    void lookAndFind(int row) {
        model.look(row);
        work.doAll();
    }

    testing::TemporaryFolder folder;
    testing::ScopedTimeZone zone{"UTC"};
    LinuxFileSystem fileSystem;
    testing::RecordingReveal reveal;
    testing::HeldWork work;
    PublishedState state;
    DuplicateFilesModel model{{state, fileSystem, reveal, work.runner()}, QLocale("de_DE")};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(DuplicateFilesModelTest, TheFileToKeepComesFirstAndTheOthersAreCounted) {
    ASSERT_EQ(model.count(), 3);
    const QStringList headings = {"KEEP", "DUPLICATE 1", "DUPLICATE 2"};
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(value(row, DuplicateFilesModel::headingRole), headings[row]);
        EXPECT_EQ(value(row, DuplicateFilesModel::isKeptRole), row == 0);
    }
    EXPECT_EQ(value(1, DuplicateFilesModel::fileNameRole), "b.jpg");
    EXPECT_EQ(value(1, DuplicateFilesModel::destinationRole), QString::fromStdString(out("b.jpg")));
    EXPECT_EQ(model.roleNames().size(), 9);
}

TEST_F(DuplicateFilesModelTest, ASourceIsKnownByThePlan) {
    EXPECT_EQ(value(0, DuplicateFilesModel::sourceRole), QString::fromStdString(in("a.jpg")));
    EXPECT_EQ(value(1, DuplicateFilesModel::sourceRole), QString::fromStdString(in("b.jpg")))
        << "the first row of a destination counts";
    EXPECT_EQ(value(2, DuplicateFilesModel::sourceRole), "") << "the plan has no such row";
}

TEST_F(DuplicateFilesModelTest, NothingIsLookedForBeforeItsRowIsInSight) {
    folder.write("out/a.jpg", "12345");
    EXPECT_EQ(work.pending(), 0);
    EXPECT_EQ(size(0), "");
    EXPECT_EQ(value(0, DuplicateFilesModel::modifiedRole), "");
    EXPECT_TRUE(value(0, DuplicateFilesModel::thumbnailRole).toUrl().isEmpty());
    EXPECT_TRUE(value(0, DuplicateFilesModel::canRevealRole).toBool());
    const QSignalSpy changed(&model, &DuplicateFilesModel::dataChanged);
    lookAndFind(0);
    EXPECT_EQ(size(0), "5 bytes");
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 0);
}

TEST_F(DuplicateFilesModelTest, AFileIsShownWhereTheRunPutIt) {
    folder.write("in/a.jpg", "1");
    const auto copy = folder.write("out/a.jpg", "12345");
    ASSERT_TRUE(fileSystem.setModificationDate(copy, instantFromUnixSeconds(std::int64_t{1'718'365'258})));
    lookAndFind(0);
    EXPECT_EQ(size(0), "5 bytes");
    EXPECT_EQ(value(0, DuplicateFilesModel::modifiedRole), "14.06.2024, 11:40");
    EXPECT_EQ(value(0, DuplicateFilesModel::thumbnailRole).toUrl(), thumbnailAddress(copy));
}

TEST_F(DuplicateFilesModelTest, AfterADryRunItIsShownWhereItCameFrom) {
    const auto original = folder.write("in/a.jpg", "1");
    ASSERT_TRUE(fileSystem.setModificationDate(original, instantFromUnixSeconds(std::int64_t{1'000'000'000})));
    lookAndFind(0);
    EXPECT_EQ(size(0), "1 byte");
    EXPECT_EQ(value(0, DuplicateFilesModel::modifiedRole), "09.09.2001, 01:46");
    EXPECT_EQ(value(0, DuplicateFilesModel::thumbnailRole).toUrl(), thumbnailAddress(original));
    EXPECT_EQ(value(0, DuplicateFilesModel::destinationRole), QString::fromStdString(out("a.jpg")));
}

TEST_F(DuplicateFilesModelTest, AFileThatIsNowhereShowsNeitherSizeNorDate) {
    for (const int row : {0, 2}) {
        lookAndFind(row);
        EXPECT_EQ(size(row), "");
        EXPECT_EQ(value(row, DuplicateFilesModel::modifiedRole), "");
        EXPECT_TRUE(value(row, DuplicateFilesModel::thumbnailRole).toUrl().isEmpty());
    }
    EXPECT_TRUE(value(0, DuplicateFilesModel::canRevealRole).toBool()) << "where it came from can be shown";
    EXPECT_FALSE(value(2, DuplicateFilesModel::canRevealRole).toBool()) << "nothing is known of it";
}

TEST_F(DuplicateFilesModelTest, OneFileIsLookedForAtATimeFromTheTop) {
    for (const char* const name : {"a.jpg", "b.jpg", "c.jpg"})
        folder.write(std::string("out/") + name, "12345");
    for (const int row : {2, 1, 0, 1})
        model.look(row);
    EXPECT_EQ(work.pending(), 1);
    work.doNext();
    EXPECT_EQ(size(2), "5 bytes") << "it came first, when there was no other";
    EXPECT_EQ(work.pending(), 1);
    work.doNext();
    EXPECT_EQ(size(0), "5 bytes");
    EXPECT_EQ(size(1), "");
    work.doNext();
    EXPECT_EQ(size(1), "5 bytes");
    EXPECT_EQ(work.pending(), 0);
}

TEST_F(DuplicateFilesModelTest, WhatGoesOutOfSightIsNotLookedForAndWhatWasFoundIsKept) {
    folder.write("out/c.jpg", "12345");
    model.look(0);
    model.look(1);
    model.look(2);
    model.lookAway(1);
    work.doNext();
    work.doNext();
    EXPECT_EQ(size(2), "5 bytes");
    EXPECT_EQ(work.pending(), 0);
    model.lookAway(2);
    model.look(2);
    EXPECT_EQ(work.pending(), 0);
    EXPECT_EQ(size(2), "5 bytes");
}

TEST_F(DuplicateFilesModelTest, ARowThatIsNoneIsNotLookedFor) {
    for (const int row : {-1, 3, 1000})
        model.look(row);
    model.lookAway(7);
    EXPECT_EQ(work.pending(), 0);
}

TEST_F(DuplicateFilesModelTest, WhatIsFoundForAnotherGroupComesTooLate) {
    folder.write("out/a.jpg", "12345");
    folder.write("out/x.jpg", "1");
    model.look(0);
    model.look(1);
    model.setGroup(1);
    ASSERT_EQ(model.count(), 2);
    const QSignalSpy changed(&model, &DuplicateFilesModel::dataChanged);
    model.look(0);
    EXPECT_EQ(work.pending(), 1) << "still one at a time";
    work.doNext();
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(size(0), "");
    work.doNext();
    EXPECT_EQ(size(0), "1 byte");
    EXPECT_EQ(work.pending(), 0) << "the other group's second row is wanted no more";
}

TEST_F(DuplicateFilesModelTest, ItsEndDoesNotWaitForTheDisk) {
    auto other = std::make_unique<DuplicateFilesModel>(
        DuplicateFilesModel::Surroundings{state, fileSystem, reveal, work.runner()});
    other->setGroup(0);
    other->look(0);
    other->reveal(1);
    other.reset();
    work.doAll();
    EXPECT_TRUE(reveal.paths.empty());
}

TEST_F(DuplicateFilesModelTest, RevealsTheDestinationWhereThereIsOne) {
    const auto copy = folder.write("out/b.jpg");
    folder.write("in/b.jpg");
    model.reveal(1);
    EXPECT_TRUE(reveal.paths.empty()) << "the disk is asked elsewhere";
    work.doAll();
    EXPECT_THAT(reveal.paths, ElementsAre(copy));
}

TEST_F(DuplicateFilesModelTest, RevealsTheSourceOtherwiseEvenIfItIsGone) {
    model.reveal(0);
    work.doAll();
    EXPECT_THAT(reveal.paths, ElementsAre(in("a.jpg")));
}

TEST_F(DuplicateFilesModelTest, RevealsNothingWhereNothingIsKnown) {
    for (const int row : {2, -1, 99})
        model.reveal(row);
    work.doAll();
    EXPECT_TRUE(reveal.paths.empty());
}

TEST_F(DuplicateFilesModelTest, RevealGoesByTheDiskAsItIsNow) {
    const auto copy = folder.write("out/a.jpg");
    lookAndFind(0);
    std::filesystem::remove(copy);
    model.reveal(0);
    work.doAll();
    EXPECT_THAT(reveal.paths, ElementsAre(in("a.jpg")));
}

TEST_F(DuplicateFilesModelTest, PathsAreBytes) {
    const auto odd = folder.write("out/odd \xff\n.jpg", "12345");
    state.duplicateGroups = {{odd, {out("b.jpg")}}};
    model.setGroup(0);
    EXPECT_EQ(value(0, DuplicateFilesModel::fileNameRole), QString("odd \uFFFD\u240A.jpg"));
    lookAndFind(0);
    EXPECT_EQ(size(0), "5 bytes");
    model.reveal(0);
    work.doAll();
    EXPECT_THAT(reveal.paths, ElementsAre(odd));
}

TEST_F(DuplicateFilesModelTest, GroupsThatAreGoneLeaveNothing) {
    lookAndFind(0);
    state = {};
    EXPECT_EQ(value(0, DuplicateFilesModel::destinationRole), "") << "before it is told";
    EXPECT_EQ(value(2, DuplicateFilesModel::fileNameRole), "");
    model.setGroup(0);
    EXPECT_EQ(model.count(), 0);
    EXPECT_EQ(model.group(), std::nullopt);
}

TEST_F(DuplicateFilesModelTest, ClearedItKeepsNothing) {
    model.clear();
    EXPECT_EQ(model.count(), 0);
    model.setGroup(0);
    EXPECT_EQ(value(0, DuplicateFilesModel::sourceRole), "") << "the plan is read when it opens";
}

}  // namespace
}  // namespace vellomar
