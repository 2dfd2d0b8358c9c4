#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/duplicates/DuplicateGroupsModel.h"
#include "ui/duplicates/DuplicatesForTests.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;

class DuplicateGroupsModelTest : public ::testing::Test {
protected:
    void show(std::vector<DuplicateGroup> groups) {
        state.duplicateGroups = std::move(groups);
        model.showAnew();
    }

    // The numbers of the groups that are shown.
    [[nodiscard]] std::vector<std::size_t> shown() const {
        std::vector<std::size_t> groups;
        for (int row = 0; row < model.count(); ++row)
            groups.push_back(*model.groupAt(row));
        return groups;
    }

    [[nodiscard]] std::vector<std::size_t> found(const QString& text) {
        model.setSearchText(text);
        return shown();
    }

    PublishedState state;
    DuplicateGroupsModel model{state};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(DuplicateGroupsModelTest, ARowTellsTheFileToKeepAndHowManyThereAre) {
    show({{"/out/a/IMG_1.jpg", {"/out/b/IMG_2.jpg"}}, {"/out/odd \xff\nname.jpg", {"/1", "/2", "/3"}}});
    EXPECT_EQ(model.index(0).data(DuplicateGroupsModel::fileNameRole), "IMG_1.jpg");
    EXPECT_EQ(model.index(0).data(DuplicateGroupsModel::copiesRole), 2);
    EXPECT_EQ(model.index(1).data(DuplicateGroupsModel::fileNameRole), QString("odd \uFFFD\u240Aname.jpg"));
    EXPECT_EQ(model.index(1).data(DuplicateGroupsModel::copiesRole), 4);
    EXPECT_EQ(model.roleNames().size(), 2);
}

TEST_F(DuplicateGroupsModelTest, HasNoRowsUntilItIsShownAndAfterItWasCleared) {
    state.duplicateGroups = testing::manyGroups(3);
    EXPECT_EQ(model.count(), 0);
    model.showAnew();
    EXPECT_THAT(shown(), ElementsAre(0, 1, 2));
    model.setSearchText("img_1");
    model.clear();
    EXPECT_EQ(model.count(), 0);
    model.showAnew();
    EXPECT_THAT(shown(), ElementsAre(0, 1, 2)) << "nothing is searched for any more";
}

TEST_F(DuplicateGroupsModelTest, AGroupStaysWhenAnyOfItsPathsHoldsTheText) {
    show({{"/out/Trip/IMG_1.jpg", {"/out/Copies/x.jpg"}},
          {"/out/Sommer/ÄPFEL.jpg", {"/out/y.jpg", "/out/trip of two/z.jpg"}},
          {"/out/q.jpg", {"/out/r.jpg"}}});
    EXPECT_THAT(found("TRIP"), ElementsAre(0, 1));
    EXPECT_THAT(found("äpfel"), ElementsAre(1));
    EXPECT_THAT(found("copies/x"), ElementsAre(0)) << "folders count as well";
    EXPECT_THAT(found("jpg/out"), ElementsAre()) << "no text is found across two paths";
    EXPECT_THAT(found(" "), ElementsAre(1)) << "a blank is a text";
    EXPECT_THAT(found("nothing like it"), ElementsAre());
    EXPECT_THAT(found(""), ElementsAre(0, 1, 2));
}

TEST_F(DuplicateGroupsModelTest, NewGroupsAreSearchedForTheSameText) {
    show(testing::manyGroups(20));
    EXPECT_THAT(found("img_7"), ElementsAre(7));
    show({{"/IMG_7.jpg", {"/a"}}, {"/b", {"/c"}}, {"/d", {"/img_71.jpg"}}});
    EXPECT_THAT(shown(), ElementsAre(0, 2));
}

TEST_F(DuplicateGroupsModelTest, ARowOfGroupsThatAreGoneIsEmpty) {
    show(testing::manyGroups(2));
    state = {};
    EXPECT_FALSE(model.index(1).data(DuplicateGroupsModel::fileNameRole).isValid());
    EXPECT_FALSE(model.data({}, DuplicateGroupsModel::fileNameRole).isValid());
    model.showAnew();
    EXPECT_EQ(model.count(), 0);
}

TEST_F(DuplicateGroupsModelTest, ThereIsNoGroupOutsideTheRows) {
    show(testing::manyGroups(2));
    EXPECT_EQ(model.groupAt(1), 1U);
    EXPECT_EQ(model.groupAt(2), std::nullopt);
    EXPECT_EQ(model.groupAt(-1), std::nullopt);
}

TEST_F(DuplicateGroupsModelTest, TellsHowManyThereAre) {
    const QSignalSpy counted(&model, &DuplicateGroupsModel::countChanged);
    show(testing::manyGroups(10'000));
    EXPECT_EQ(counted.count(), 1);
    EXPECT_EQ(model.count(), 10'000);
    EXPECT_THAT(found("a of img_9999.jpg"), ElementsAre(9'999));
    EXPECT_EQ(counted.count(), 2);
}

}  // namespace
}  // namespace vellomar
