#include <QSignalSpy>

#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/RecordingDesktop.h"
#include "ui/duplicates/DuplicateViewerModel.h"
#include "ui/duplicates/DuplicatesForTests.h"
#include "ui/plan/PlanForTests.h"

namespace vellomar {
namespace {

using testing::manyGroups;

class DuplicateViewerModelTest : public ::testing::Test {
protected:
    // The name of the file to keep of the group that is shown.
    [[nodiscard]] QString kept() { return viewer.files()->index(0).data(DuplicateFilesModel::fileNameRole).toString(); }

    testing::PublishedGroups engine;
    LinuxFileSystem fileSystem;
    testing::RecordingReveal reveal;
    testing::HeldWork work;
    DuplicateViewerModel viewer{{engine.state, engine.events, fileSystem, reveal, work.runner()}};
};

TEST_F(DuplicateViewerModelTest, OpensOnlyOverGroups) {
    EXPECT_FALSE(viewer.canOpen());
    viewer.open();
    EXPECT_FALSE(viewer.isOpen());
    const QSignalSpy totals(&viewer, &DuplicateViewerModel::totalChanged);
    engine.publish(manyGroups(3));
    EXPECT_EQ(totals.count(), 1);
    EXPECT_EQ(viewer.total(), 3);
    EXPECT_TRUE(viewer.canOpen());
    EXPECT_EQ(viewer.groups()->count(), 0) << "closed, it lists nothing";
    viewer.open();
    EXPECT_TRUE(viewer.isOpen());
    EXPECT_EQ(viewer.groups()->count(), 3);
    EXPECT_EQ(viewer.selectedIndex(), 0);
    EXPECT_EQ(kept(), "IMG_0.jpg");
}

TEST_F(DuplicateViewerModelTest, SelectionKeepsToTheList) {
    engine.publish(manyGroups(3));
    viewer.open();
    struct Case {
        int asked;
        int selected;
    };
    for (const auto& [asked, selected] : {Case{1, 1}, Case{2, 2}, Case{3, 2}, Case{-1, 0}, Case{1000, 2}}) {
        viewer.select(asked);
        EXPECT_EQ(viewer.selectedIndex(), selected) << asked;
        EXPECT_EQ(kept(), "IMG_" + QString::number(selected) + ".jpg");
    }
}

TEST_F(DuplicateViewerModelTest, TheSelectedGroupIsNotReadAgain) {
    engine.publish(manyGroups(3));
    viewer.open();
    const QSignalSpy resets(viewer.files(), &DuplicateFilesModel::modelReset);
    viewer.select(0);
    viewer.setSearchText("img");
    EXPECT_EQ(resets.count(), 0);
    viewer.select(1);
    EXPECT_EQ(resets.count(), 1);
}

TEST_F(DuplicateViewerModelTest, ASearchResetsNothing) {
    engine.publish(manyGroups(30));
    viewer.open();
    viewer.select(5);
    viewer.setSearchText("img_1");
    EXPECT_EQ(viewer.groups()->count(), 11);
    EXPECT_EQ(viewer.selectedIndex(), 5);
    EXPECT_EQ(kept(), "IMG_14.jpg") << "what stands at that place now";
    viewer.setSearchText("IMG_12");
    EXPECT_EQ(viewer.groups()->count(), 1);
    EXPECT_EQ(viewer.selectedIndex(), 5);
    EXPECT_EQ(viewer.files()->count(), 0) << "it lies past the list";
    viewer.setSearchText("nothing");
    EXPECT_EQ(viewer.groups()->count(), 0);
    viewer.select(0);
    EXPECT_EQ(viewer.selectedIndex(), 5) << "there is nothing to select";
    viewer.setSearchText("");
    EXPECT_EQ(kept(), "IMG_5.jpg");
}

TEST_F(DuplicateViewerModelTest, FromPastTheListItComesBackIntoIt) {
    engine.publish(manyGroups(30));
    viewer.open();
    viewer.select(25);
    viewer.setSearchText("img_2.");
    ASSERT_EQ(viewer.groups()->count(), 1);
    viewer.select(viewer.selectedIndex() - 1);
    EXPECT_EQ(viewer.selectedIndex(), 0);
    EXPECT_EQ(kept(), "IMG_2.jpg");
}

TEST_F(DuplicateViewerModelTest, EachTimeItOpensAllIsAsAtFirst) {
    engine.publish(manyGroups(30));
    viewer.open();
    viewer.select(3);
    viewer.setSearchText("img_2");
    viewer.dismiss();
    EXPECT_FALSE(viewer.isOpen());
    EXPECT_EQ(viewer.groups()->count(), 0);
    EXPECT_EQ(viewer.files()->count(), 0);
    viewer.open();
    EXPECT_EQ(viewer.searchText(), "");
    EXPECT_EQ(viewer.selectedIndex(), 0);
    EXPECT_EQ(viewer.groups()->count(), 30);
}

TEST_F(DuplicateViewerModelTest, ThePlanIsReadOnceWhenItOpens) {
    engine.state.previewRows = {testing::planRow("/in/a.jpg", "/out/2023/IMG_0.jpg")};
    engine.publish(manyGroups(3));
    viewer.open();
    const auto source = [&] { return viewer.files()->index(0).data(DuplicateFilesModel::sourceRole).toString(); };
    EXPECT_EQ(source(), "/in/a.jpg");
    engine.state.previewRows.clear();
    viewer.select(1);
    viewer.select(0);
    EXPECT_EQ(source(), "/in/a.jpg");
}

TEST_F(DuplicateViewerModelTest, ANewRunEmptiesItAndFillsItAgain) {
    engine.publish(manyGroups(30));
    viewer.open();
    viewer.select(20);
    viewer.setSearchText("IMG");
    engine.publish({});
    EXPECT_TRUE(viewer.isOpen());
    EXPECT_EQ(viewer.total(), 0);
    EXPECT_EQ(viewer.groups()->count(), 0);
    EXPECT_EQ(viewer.files()->count(), 0);
    engine.state.previewRows = {testing::planRow("/in/new.jpg", "/out/IMG_new.jpg")};
    engine.publish({{"/out/else.jpg", {"/out/else2.jpg"}}, {"/out/IMG_new.jpg", {"/out/IMG_2.jpg"}}});
    EXPECT_EQ(viewer.searchText(), "IMG") << "what the user typed stays";
    EXPECT_EQ(viewer.groups()->count(), 1);
    EXPECT_EQ(viewer.selectedIndex(), 0);
    EXPECT_EQ(kept(), "IMG_new.jpg");
    EXPECT_EQ(viewer.files()->index(0).data(DuplicateFilesModel::sourceRole), "/in/new.jpg");
}

TEST_F(DuplicateViewerModelTest, OtherNewsOfARunLeaveItAlone) {
    engine.publish(manyGroups(30));
    viewer.open();
    viewer.select(20);
    const QSignalSpy resets(viewer.groups(), &DuplicateGroupsModel::modelReset);
    engine.events.fieldChanged(PublishedField::progress);
    engine.events.fieldChanged(PublishedField::duplicateDestPaths);
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(viewer.selectedIndex(), 20);
}

}  // namespace
}  // namespace vellomar
