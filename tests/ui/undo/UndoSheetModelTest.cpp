#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <memory>

#include <gmock/gmock.h>

#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"
#include "ui/QtPrinters.h"
#include "ui/undo/ManifestsForTests.h"
#include "ui/undo/UndoSheetModel.h"
#include "undo/ManifestText.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::manifestOf;

class UndoSheetModelTest : public ::testing::Test {
protected:
    std::string file(const char* name, const UndoManifest& manifest) {
        return folder.write(name, manifestText(manifest));
    }

    [[nodiscard]] QVariant at(int row, int role) const { return model.data(model.index(row), role); }

    [[nodiscard]] std::vector<std::string> dates() const {
        std::vector<std::string> texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts.push_back(at(row, UndoSheetModel::runDateRole).toString().toStdString());
        return texts;
    }

    void finishWork() {
        while (!waiting.empty()) {
            const auto [work, then] = waiting.front();
            waiting.erase(waiting.begin());
            work();
            then();
        }
    }

    testing::TemporaryFolder folder;
    LinuxFileSystem fileSystem;
    bool runsAtOnce = true;
    std::vector<std::pair<std::function<void()>, std::function<void()>>> waiting;
    UndoSheetModel model{fileSystem,
                         [this](std::function<void()> work, std::function<void()> then) {
                             waiting.emplace_back(std::move(work), std::move(then));
                             if (runsAtOnce) finishWork();
                         },
                         QLocale("de_DE")};
    QAbstractItemModelTester tester{&model};
};

TEST_F(UndoSheetModelTest, BeginsWithNothing) {
    EXPECT_EQ(model.count(), 0);
    EXPECT_FALSE(model.hasSelection());
    EXPECT_EQ(model.selectedRow(), -1);
    EXPECT_EQ(model.selectedOperations(), 0);
    EXPECT_EQ(model.selected(), nullptr);
    EXPECT_EQ(model.importError(), "");
}

TEST_F(UndoSheetModelTest, TellsOfARunWhatItDid) {
    auto manifest = manifestOf("2024-06-14T11:40:58", 2, 3);
    manifest.sourceRoot = "/a|/b\xFF";
    model.setManifests({manifest});
    EXPECT_EQ(at(0, UndoSheetModel::runDateRole).toString(), "14.06.2024, 11:40");
    EXPECT_FALSE(at(0, UndoSheetModel::isImportedRole).toBool());
    EXPECT_EQ(at(0, UndoSheetModel::operationsRole).toInt(), 5);
    EXPECT_EQ(at(0, UndoSheetModel::movedRole).toInt(), 2);
    EXPECT_EQ(at(0, UndoSheetModel::copiedRole).toInt(), 3);
    EXPECT_EQ(at(0, UndoSheetModel::sourceRootRole).toString(), QString("/a|/b\uFFFD"));
    EXPECT_EQ(at(0, UndoSheetModel::destRootRole).toString(), "/photos/library");
    EXPECT_FALSE(at(0, UndoSheetModel::isSelectedRole).toBool());
    EXPECT_FALSE(model.data({}, UndoSheetModel::runDateRole).isValid());
}

TEST_F(UndoSheetModelTest, ListsWhatIsImportedBehindWhatLiesInTheFolder) {
    model.setManifests({manifestOf("second", 1, 0), manifestOf("first", 1, 0)});
    model.importFiles({file("a.json", manifestOf("imported", 0, 4))});
    EXPECT_THAT(dates(), ElementsAre("second", "first", "imported"));
    EXPECT_TRUE(at(2, UndoSheetModel::isImportedRole).toBool());
    EXPECT_EQ(model.selectedRow(), 2);
    EXPECT_EQ(model.selectedOperations(), 4);
    EXPECT_EQ(model.importError(), "");
}

TEST_F(UndoSheetModelTest, ListsAnImportedRunOnce) {
    const auto path = file("a.json", manifestOf("imported", 0, 4));
    model.importFiles({path});
    model.importFiles({path, path});
    EXPECT_THAT(dates(), ElementsAre("imported"));
    EXPECT_EQ(model.selectedRow(), 0);
}

TEST_F(UndoSheetModelTest, ARunThatLiesInTheFolderIsNotListedAgainButSelected) {
    model.setManifests({manifestOf("one", 1, 0), manifestOf("two", 1, 0), manifestOf("two", 1, 0)});
    EXPECT_THAT(dates(), ElementsAre("one", "two"));
    model.importFiles({file("a.json", manifestOf("two", 0, 9))});
    EXPECT_THAT(dates(), ElementsAre("one", "two"));
    EXPECT_FALSE(at(1, UndoSheetModel::isImportedRole).toBool());
    EXPECT_EQ(model.selectedRow(), 1);
    EXPECT_EQ(model.selectedOperations(), 9);
    EXPECT_EQ(*model.selected(), manifestOf("two", 0, 9));
}

TEST_F(UndoSheetModelTest, AFileThatIsNoManifestIsToldByItsName) {
    for (const auto& path : {folder.write("bad.json", "{"), folder / "bad.json", folder.write("deep/bad.json", "")}) {
        model.dismissImportError();
        model.importFiles({path});
        EXPECT_EQ(model.importError(), "Could not read bad.json — is it a valid Vellomar undo file?");
    }
    EXPECT_EQ(model.count(), 0);
    EXPECT_FALSE(model.hasSelection());
}

TEST_F(UndoSheetModelTest, ANameThatIsNoTextIsShownAsWellAsItCan) {
    model.importFiles({"/nowhere/a\xFF.json"});
    EXPECT_EQ(model.importError(), QString("Could not read a\uFFFD.json — is it a valid Vellomar undo file?"));
}

TEST_F(UndoSheetModelTest, TheFilesOfOneImportAreTakenInTheirOrder) {
    const auto bad = folder.write("bad.json", "{");
    const auto first = file("1.json", manifestOf("first", 1, 0));
    const auto second = file("2.json", manifestOf("second", 1, 0));
    model.importFiles({first, second, bad});
    EXPECT_THAT(dates(), ElementsAre("first", "second"));
    EXPECT_EQ(model.selectedRow(), 1);
    EXPECT_EQ(model.importError(), "Could not read bad.json — is it a valid Vellomar undo file?");

    model.importFiles({bad, first});
    EXPECT_EQ(model.selectedRow(), 0);
    EXPECT_EQ(model.importError(), "");
}

TEST_F(UndoSheetModelTest, AFailureStaysUntilASuccessOrUntilItIsDismissed) {
    model.importFiles({"/nowhere"});
    model.importFiles({});
    EXPECT_NE(model.importError(), "");
    const QSignalSpy changes(&model, &UndoSheetModel::importErrorChanged);
    model.dismissImportError();
    EXPECT_EQ(model.importError(), "");
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(UndoSheetModelTest, DroppedFilesAreImportedByTheirBytes) {
    const auto path = file("a\xFF b.json", manifestOf("dropped", 1, 0));
    model.importUrls({QUrl("https://example.org/x.json"),
                      QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/"))});
    EXPECT_THAT(dates(), ElementsAre("dropped"));
    EXPECT_EQ(model.importError(), "");
}

TEST_F(UndoSheetModelTest, NothingIsReadBeforeTheBackgroundDoesIt) {
    runsAtOnce = false;
    model.importFiles({folder / "late.json"});
    EXPECT_EQ(model.importError(), "");
    file("late.json", manifestOf("late", 1, 0));
    finishWork();
    EXPECT_THAT(dates(), ElementsAre("late"));
}

TEST_F(UndoSheetModelTest, WhatIsReadForAnEarlierOpeningIsDropped) {
    runsAtOnce = false;
    model.importFiles({file("a.json", manifestOf("a", 1, 0)), "/nowhere"});
    model.clear();
    finishWork();
    EXPECT_THAT(dates(), IsEmpty());
    EXPECT_EQ(model.importError(), "");
}

TEST_F(UndoSheetModelTest, WhatIsReadForAModelThatIsGoneIsDropped) {
    std::function<void()> late;
    auto other = std::make_unique<UndoSheetModel>(fileSystem, [&](auto work, auto then) {
        work();
        late = then;
    });
    other->importFiles({file("a.json", manifestOf("a", 1, 0))});
    other.reset();
    late();
}

TEST_F(UndoSheetModelTest, ClearTakesEverythingBack) {
    model.setManifests({manifestOf("a", 1, 0)});
    model.importFiles({file("b.json", manifestOf("b", 1, 0)), "/nowhere"});
    model.clear();
    EXPECT_THAT(dates(), IsEmpty());
    EXPECT_FALSE(model.hasSelection());
    EXPECT_EQ(model.importError(), "");
}

TEST_F(UndoSheetModelTest, AListThatComesLateGoesBeforeWhatWasImported) {
    model.importFiles({file("b.json", manifestOf("b", 1, 0)), file("c.json", manifestOf("c", 1, 0))});
    model.setManifests({manifestOf("a", 1, 0), manifestOf("c", 1, 0)});
    EXPECT_THAT(dates(), ElementsAre("a", "c", "b"));
    EXPECT_FALSE(at(1, UndoSheetModel::isImportedRole).toBool());
    EXPECT_EQ(model.selectedRow(), 1);
    model.select(0);
    model.setManifests({});
    EXPECT_FALSE(model.hasSelection());
}

TEST_F(UndoSheetModelTest, SelectingTellsBothRows) {
    model.setManifests({manifestOf("a", 1, 0), manifestOf("b", 1, 1)});
    model.select(0);
    const QSignalSpy rows(&model, &UndoSheetModel::dataChanged);
    const QSignalSpy selection(&model, &UndoSheetModel::selectionChanged);
    model.select(1);
    ASSERT_EQ(rows.count(), 2);
    EXPECT_EQ(rows[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(rows[1][0].toModelIndex().row(), 1);
    EXPECT_EQ(selection.count(), 1);
    EXPECT_FALSE(at(0, UndoSheetModel::isSelectedRole).toBool());
    EXPECT_TRUE(at(1, UndoSheetModel::isSelectedRole).toBool());
    EXPECT_EQ(*model.selected(), manifestOf("b", 1, 1));
    for (const int none : {-1, 2}) {
        model.select(none);
        EXPECT_EQ(model.selectedRow(), 1);
    }
}

TEST_F(UndoSheetModelTest, TheSelectionMovesByOneAndStopsAtTheEnds) {
    model.selectNext();
    model.selectPrevious();
    EXPECT_FALSE(model.hasSelection());
    model.setManifests({manifestOf("a", 1, 0), manifestOf("b", 1, 0), manifestOf("c", 1, 0)});
    model.selectPrevious();
    EXPECT_EQ(model.selectedRow(), 2);
    model.selectNext();
    EXPECT_EQ(model.selectedRow(), 2);
    model.selectPrevious();
    model.selectPrevious();
    model.selectPrevious();
    EXPECT_EQ(model.selectedRow(), 0);
    model.clear();
    model.setManifests({manifestOf("a", 1, 0), manifestOf("b", 1, 0)});
    model.selectNext();
    EXPECT_EQ(model.selectedRow(), 0);
}

}  // namespace
}  // namespace vellomar
