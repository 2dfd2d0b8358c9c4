#include <QSignalSpy>

#include <gmock/gmock.h>

#include "settings/OptionSettings.h"
#include "settings/SettingsFile.h"
#include "settings/SettingsKeys.h"
#include "ui/QtPrinters.h"
#include "ui/presets/PresetsModel.h"

namespace vellomar {
namespace {

class PresetsModelTest : public ::testing::Test {
protected:
    [[nodiscard]] QString shown(int row, PresetsModel::Role role) const {
        return model.data(model.index(row), role).toString();
    }

    testing::SettingsFile file;
    std::unique_ptr<SettingsStore> settings = file.open();
    PresetsModel model{*settings};
};

TEST_F(PresetsModelTest, SavesTheOptionsAsTheyAreSetNow) {
    Options options;
    options.namingStyle = NamingStyle::archival;
    options.conflictPolicy = ConflictPolicy::skip;
    saveOption(*settings, options, "opt_namingStyle");
    saveOption(*settings, options, "opt_conflictPolicy");
    const QSignalSpy counted(&model, &PresetsModel::countChanged);
    EXPECT_TRUE(model.savePreset("  Phone backup\n"));
    EXPECT_EQ(model.count(), 1);
    EXPECT_EQ(counted.count(), 1);
    EXPECT_EQ(shown(0, PresetsModel::nameRole), "Phone backup");
    EXPECT_EQ(shown(0, PresetsModel::detailsRole), "Archival · Skip");
    PresetsModel later(*settings);
    later.loadPresets();
    EXPECT_EQ(later.count(), 1);
}

TEST_F(PresetsModelTest, ANameOfWhiteSpaceSavesNothing) {
    for (const char* const name : {"", "   ", "\n\t ", "\u00a0"})
        EXPECT_FALSE(model.savePreset(QString::fromUtf8(name))) << name;
    EXPECT_EQ(model.count(), 0);
}

TEST_F(PresetsModelTest, LoadingSetsTheOptionsAndClosesTheSheet) {
    model.savePreset("As it was");
    Options options;
    options.conflictPolicy = ConflictPolicy::overwrite;
    saveOption(*settings, options, "opt_conflictPolicy");
    model.open();
    EXPECT_TRUE(model.isOpen());
    model.applyPreset(0);
    EXPECT_FALSE(model.isOpen());
    EXPECT_EQ(buildOptions(*settings).conflictPolicy, ConflictPolicy::rename);
}

TEST_F(PresetsModelTest, DeletesOneOfTwoOfOneName) {
    model.savePreset("Twin");
    Options options;
    options.namingStyle = NamingStyle::original;
    saveOption(*settings, options, "opt_namingStyle");
    model.savePreset("Twin");
    model.deletePreset(0);
    ASSERT_EQ(model.count(), 1);
    EXPECT_EQ(shown(0, PresetsModel::detailsRole), "Original · Rename");
    PresetsModel later(*settings);
    later.loadPresets();
    EXPECT_EQ(later.count(), 1);
}

TEST_F(PresetsModelTest, ARowThatIsNoneChangesNothing) {
    model.savePreset("One");
    model.open();
    for (const int row : {-1, 1}) {
        model.applyPreset(row);
        model.deletePreset(row);
    }
    EXPECT_TRUE(model.isOpen());
    EXPECT_EQ(model.count(), 1);
    EXPECT_FALSE(model.data({}, PresetsModel::nameRole).isValid());
}

TEST_F(PresetsModelTest, AListThatCannotBeReadIsEmpty) {
    settings->setBytes(keys::kSavedPresets, "[{}]");
    model.loadPresets();
    EXPECT_EQ(model.count(), 0);
}

TEST_F(PresetsModelTest, ANameIsShownOnOneLine) {
    model.savePreset("first\nsecond\u2028third");
    EXPECT_EQ(shown(0, PresetsModel::nameRole), "first second third");
}

}  // namespace
}  // namespace vellomar
