#include <QAbstractItemModelTester>
#include <QColor>
#include <QSignalSpy>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/plan/ActionColours.h"
#include "ui/plan/PlanForTests.h"
#include "ui/plan/PlanModel.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using testing::planRow;
using testing::PublishedPlan;

class PlanModelTest : public ::testing::Test {
protected:
    [[nodiscard]] QVariant value(int row, PlanModel::Role role) const { return rows.data(rows.index(row), role); }

    [[nodiscard]] std::vector<bool> boundaries() const {
        std::vector<bool> result;
        for (int row = 0; row < rows.count(); ++row)
            result.push_back(value(row, PlanModel::beginsEventRole).toBool());
        return result;
    }

    void addDates(const std::vector<std::string>& dates) {
        std::vector<PlanRow> added;
        for (const auto& date : dates)
            added.push_back(planRow("/in/a.jpg", "/out/a.jpg", date));
        plan.add(std::move(added));
    }

    PublishedPlan plan;
    PlanModel rows{plan.state, plan.events};
    QAbstractItemModelTester tester{&rows, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(PlanModelTest, ShowsWhatARowHolds) {
    plan.add({planRow("/home/anna/Pictures/DCIM/IMG_1.jpg", "/out/2023/08 - August/Vacation/x.jpg",
                      "2023-08-14 14:30:21", "X100V", "MOVE->/out/2023/08 - August/Vacation/x.jpg")});
    EXPECT_EQ(value(0, PlanModel::fileNameRole), "IMG_1.jpg");
    EXPECT_EQ(value(0, PlanModel::sourceFolderRole), "/home/anna/Pictures/DCIM");
    EXPECT_EQ(value(0, PlanModel::shortSourceRole), "…/Pictures/DCIM/IMG_1.jpg");
    EXPECT_EQ(value(0, PlanModel::destinationRole), "/out/2023/08 - August/Vacation/x.jpg");
    EXPECT_EQ(value(0, PlanModel::shortDestinationRole), "…/08 - August/Vacation/x.jpg");
    EXPECT_EQ(value(0, PlanModel::cameraRole), "X100V");
    EXPECT_EQ(value(0, PlanModel::actionRole), "MOVE->/out/2023/08 - August/Vacation/x.jpg");
    EXPECT_EQ(value(0, PlanModel::dateRole), "2023-08-14 14:30:21");
    EXPECT_TRUE(value(0, PlanModel::thumbnailRole).toUrl().isValid());
    EXPECT_EQ(rows.roleNames().size(), 14);
}

TEST_F(PlanModelTest, AnEmptyCameraIsAnEmptyCell) {
    plan.add({planRow("/in/a.mov", "/out/a.mov", "2023-08-14 14:30:21", "")});
    EXPECT_EQ(value(0, PlanModel::cameraRole), "");
    EXPECT_TRUE(value(0, PlanModel::thumbnailRole).toUrl().isEmpty()) << "a film has no picture";
}

TEST_F(PlanModelTest, DividersStandWhereMoreThanFourHoursPass) {
    addDates({"2023-08-14 10:00:00", "2023-08-14 14:00:00", "2023-08-14 18:00:01", "2023-08-01 00:00:00", "—",
              "2023-08-14 10:00:00", "2023-08-15 10:00:00"});
    EXPECT_THAT(boundaries(), ElementsAre(false, false, true, false, false, false, true));
}

TEST_F(PlanModelTest, OneRowHasNoDivider) {
    addDates({"2023-08-14 10:00:00"});
    EXPECT_THAT(boundaries(), ElementsAre(false));
}

TEST_F(PlanModelTest, DividersGoOnAcrossBatches) {
    addDates({"2023-08-14 10:00:00"});
    addDates({"2023-08-14 20:00:00"});
    EXPECT_THAT(boundaries(), ElementsAre(false, true));
}

TEST_F(PlanModelTest, DividersFollowTheRowsAsShown) {
    PlanFilters filters(plan.state, plan.events);
    const PlanModel filtered(plan.state, plan.events, &filters);
    plan.add({planRow("/keep/a", "/o/a", "2023-08-14 10:00:00"), planRow("/b", "/o/b", "2023-08-14 13:00:00"),
              planRow("/keep/c", "/o/c", "2023-08-14 16:00:00")});
    EXPECT_THAT(boundaries(), ElementsAre(false, false, false));
    filters.setSearchText("keep");
    ASSERT_EQ(filtered.count(), 2);
    EXPECT_FALSE(filtered.index(0).data(PlanModel::beginsEventRole).toBool());
    EXPECT_TRUE(filtered.index(1).data(PlanModel::beginsEventRole).toBool()) << "what lay between is not shown";
}

TEST_F(PlanModelTest, DuplicatesAreMarkedByTheirDestination) {
    plan.add({planRow("/a.jpg", "/out/a.jpg"), planRow("/b.jpg", "/out/b.jpg")});
    const QSignalSpy changed(&rows, &PlanModel::dataChanged);
    plan.state.duplicateDestPaths = {"/out/b.jpg"};
    plan.events.fieldChanged(PublishedField::duplicateDestPaths);
    EXPECT_FALSE(value(0, PlanModel::isDupRole).toBool());
    EXPECT_TRUE(value(1, PlanModel::isDupRole).toBool());
    EXPECT_EQ(rows.duplicates(), 1);
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(PlanModelTest, TellsHowManyThereAreOfHowMany) {
    const QSignalSpy counted(&rows, &PlanModel::countChanged);
    addDates({"2023-08-14 10:00:00", "2023-08-14 10:00:00"});
    EXPECT_EQ(rows.total(), 2);
    EXPECT_GE(counted.count(), 1);
    const QSignalSpy changed(&rows, &PlanModel::stateChanged);
    plan.state.previewRowsCapped = true;
    plan.state.totalFilesScanned = 7'000;
    plan.events.fieldChanged(PublishedField::totalFilesScanned);
    plan.events.fieldChanged(PublishedField::previewRowsCapped);
    EXPECT_EQ(changed.count(), 2);
    EXPECT_TRUE(rows.isCapped());
    EXPECT_EQ(rows.scanned(), 7'000);
}

TEST_F(PlanModelTest, RowsThatComeLeaveTheOthersAlone) {
    addDates({"2023-08-14 10:00:00"});
    const QSignalSpy reset(&rows, &PlanModel::modelReset);
    const QSignalSpy inserted(&rows, &PlanModel::rowsInserted);
    addDates({"2023-08-14 10:00:00", "2023-08-14 10:00:00"});
    EXPECT_EQ(reset.count(), 0);
    ASSERT_EQ(inserted.count(), 1);
    EXPECT_EQ(inserted.front()[1], 1);
    EXPECT_EQ(inserted.front()[2], 2);
}

TEST_F(PlanModelTest, ANewRunEmptiesIt) {
    addDates({"2023-08-14 10:00:00"});
    plan.clear();
    EXPECT_EQ(rows.count(), 0);
    EXPECT_EQ(rows.row(0), nullptr);
    EXPECT_FALSE(rows.data({}, PlanModel::fileNameRole).isValid());
}

TEST(ActionColours, FollowTheActionsBeginning) {
    struct Case {
        const char* action;
        const char* fill;
        const char* text;
        const char* edge;
    };
    for (const auto& [action, fill, text, edge] :
         {Case{"SKIP (exists)", "1A0D0D", "7A4040", "2A1515"}, Case{"COPY->/out/a.jpg", "0D1A12", "3D8B5E", "1A2E20"},
          Case{"MOVE->/out/a.jpg", "1C1A00", "F5C518", "2A2600"}, Case{"", "1C1A00", "F5C518", "2A2600"},
          Case{"copy", "1C1A00", "F5C518", "2A2600"}}) {
        const auto& colours = actionColours(action);
        EXPECT_EQ(colours.fill, hexColour(fill)) << action;
        EXPECT_EQ(colours.text, hexColour(text)) << action;
        EXPECT_EQ(colours.edge, hexColour(edge)) << action;
    }
}

}  // namespace
}  // namespace vellomar
