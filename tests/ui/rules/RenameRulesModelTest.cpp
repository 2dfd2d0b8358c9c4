#include <QSignalSpy>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/rules/RenameRulesModel.h"

namespace vellomar {
namespace {

class RenameRulesModelTest : public ::testing::Test {
protected:
    RenameRulesModel model;
};

TEST_F(RenameRulesModelTest, AddsEnabledRulesWithIdentitiesInTheOrderInWhichTheyCome) {
    const QSignalSpy changed(&model, &RenameRulesModel::changed);
    EXPECT_TRUE(model.addRule("Vacation", "Vacaciones"));
    EXPECT_TRUE(model.addRule("hawaii", "Hawaii 2019"));
    ASSERT_EQ(model.rules().size(), 2);
    EXPECT_EQ(model.rules()[0].matchText, "Vacation");
    EXPECT_EQ(model.rules()[0].replacement, "Vacaciones");
    EXPECT_TRUE(model.rules()[0].isEnabled);
    EXPECT_NE(model.rules()[0].id, model.rules()[1].id);
    EXPECT_EQ(model.active(), 2);
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(RenameRulesModelTest, BothTextsMustBeThere) {
    EXPECT_FALSE(model.addRule("", "Vacaciones"));
    EXPECT_FALSE(model.addRule("Vacation", ""));
    EXPECT_EQ(model.count(), 0);
    EXPECT_TRUE(model.addRule(" ", " ")) << "a folder's name may be matched by a blank";
}

TEST_F(RenameRulesModelTest, CountsTheEnabledOnes) {
    model.addRule("a", "b");
    model.addRule("c", "d");
    const QSignalSpy shown(&model, &RenameRulesModel::dataChanged);
    model.setEnabled(0, false);
    EXPECT_EQ(model.active(), 1);
    EXPECT_FALSE(model.data(model.index(0), RenameRulesModel::isEnabledRole).toBool());
    EXPECT_EQ(shown.count(), 1);
    model.setEnabled(0, true);
    EXPECT_EQ(model.active(), 2);
}

TEST_F(RenameRulesModelTest, DeletesOneRule) {
    model.addRule("a", "b");
    model.addRule("c", "d");
    model.deleteRule(0);
    ASSERT_EQ(model.count(), 1);
    EXPECT_EQ(model.data(model.index(0), RenameRulesModel::matchTextRole), "c");
    EXPECT_EQ(model.data(model.index(0), RenameRulesModel::replacementRole), "d");
}

TEST_F(RenameRulesModelTest, ARowThatIsNoneChangesNothing) {
    model.addRule("a", "b");
    for (const int row : {-1, 1}) {
        model.setEnabled(row, false);
        model.deleteRule(row);
    }
    EXPECT_EQ(model.active(), 1);
    EXPECT_FALSE(model.data({}, RenameRulesModel::matchTextRole).isValid());
}

}  // namespace
}  // namespace vellomar
