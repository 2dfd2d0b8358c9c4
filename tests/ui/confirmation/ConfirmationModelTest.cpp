#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/confirmation/ConfirmationModel.h"
#include "ui/confirmation/PlainSettings.h"

namespace vellomar {
namespace {

constexpr int kAlways = 6;  // rows that are there whatever the settings

std::vector<SettingRow> rowsOf(ConfirmationModel& model) {
    std::vector<SettingRow> rows;
    const auto& list = *model.settings();
    for (int row = 0; row < list.rowCount(); ++row) {
        const auto at = [&](int role) { return list.data(list.index(row, 0), role); };
        rows.push_back({at(SettingRowsModel::symbolRole).toString(),
                        at(SettingRowsModel::symbolColourRole).value<QColor>(),
                        at(SettingRowsModel::keyRole).toString(), at(SettingRowsModel::valueRole).toString()});
    }
    return rows;
}

TEST(ConfirmationModel, HasTheRowsOfItsRun) {
    auto settings = plainSettings();
    settings.options.moveOriginalsWhenReliable = settings.options.verifyAfterCopy = true;
    for (const auto run : {ConfirmationModel::Run::dry, ConfirmationModel::Run::real}) {
        ConfirmationModel model(run);
        const QAbstractItemModelTester tester(model.settings());
        model.setSettings(settings);
        const auto missing = run == ConfirmationModel::Run::dry ? MissingEstimate::leftOut : MissingEstimate::told;
        EXPECT_EQ(rowsOf(model), settingRows(settings, missing));

        const auto promises = run == ConfirmationModel::Run::dry ? dryRunPromises() : realRunPromises(settings.options);
        const auto told = model.promises();
        ASSERT_EQ(told.size(), static_cast<qsizetype>(promises.size()));
        for (qsizetype i = 0; i < told.size(); ++i) {
            const auto row = told[i].toMap();
            EXPECT_EQ((PromiseRow{row["symbol"].toString(), row["colour"].value<QColor>(), row["text"].toString()}),
                      promises[static_cast<std::size_t>(i)]);
        }
    }
}

TEST(ConfirmationModel, OnlyARealRunThatMovesWarns) {
    for (const bool moves : {false, true}) {
        auto settings = plainSettings();
        settings.options.moveOriginalsWhenReliable = moves;
        ConfirmationModel dry(ConfirmationModel::Run::dry);
        dry.setSettings(settings);
        EXPECT_FALSE(dry.warnsOfMove());
        EXPECT_EQ(dry.subtitle(), "Simulates the entire sort without touching any files.");
        ConfirmationModel real(ConfirmationModel::Run::real);
        real.setSettings(settings);
        EXPECT_EQ(real.warnsOfMove(), moves);
        EXPECT_EQ(real.subtitle(), moves ? "Files will be sorted and moved to your destination folder."
                                         : "Files will be sorted and copied to your destination folder.");
    }
}

TEST(ConfirmationModel, AnEstimateBringsItsRowsAndTouchesNoOther) {
    ConfirmationModel model(ConfirmationModel::Run::dry);
    model.setSettings(plainSettings());
    ASSERT_EQ(model.settings()->rowCount(), kAlways);
    const QSignalSpy inserted(model.settings(), &QAbstractItemModel::rowsInserted);
    const QSignalSpy changed(model.settings(), &QAbstractItemModel::dataChanged);
    const QSignalSpy reset(model.settings(), &QAbstractItemModel::modelReset);
    const QSignalSpy others(&model, &ConfirmationModel::changed);

    model.setEstimate({10, 5'000'000, 65});

    ASSERT_EQ(inserted.count(), 2);
    EXPECT_EQ(inserted[0][1].toInt(), 2);
    EXPECT_EQ(inserted[1][1].toInt(), 3);
    EXPECT_EQ(changed.count() + reset.count() + others.count(), 0);
    EXPECT_EQ(rowsOf(model)[2].value, "10 files · 5 MB");
}

TEST(ConfirmationModel, AnEstimateTakesThePlaceOfCalculating) {
    ConfirmationModel model(ConfirmationModel::Run::real);
    model.setSettings(plainSettings());
    EXPECT_EQ(rowsOf(model)[2].value, "Calculating…");
    const QSignalSpy inserted(model.settings(), &QAbstractItemModel::rowsInserted);
    const QSignalSpy changed(model.settings(), &QAbstractItemModel::dataChanged);

    model.setEstimate({10, 5'000'000, 65});

    EXPECT_EQ(inserted.count(), 1);
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 2);
    EXPECT_EQ(rowsOf(model)[2].value, "10 files · 5 MB");
}

TEST(ConfirmationModel, OtherSettingsTakeTheRowsOfTheOldOnesAway) {
    ConfirmationModel model(ConfirmationModel::Run::real);
    const QAbstractItemModelTester tester(model.settings());
    auto full = plainSettings();
    full.options.syncFSDates = full.options.verifyAfterCopy = true;
    full.estimate = RunEstimate{1, 1, 1};
    full.activeRules = 2;
    for (const auto& settings : {full, plainSettings(), full}) {
        model.setSettings(settings);
        EXPECT_EQ(rowsOf(model), settingRows(settings, MissingEstimate::told));
    }
}

}  // namespace
}  // namespace vellomar
