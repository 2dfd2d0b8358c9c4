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
        return folder_.write(name, manifestText(manifest));
    }

    [[nodiscard]] QVariant at(int row, int role) const { return model_.data(model_.index(row), role); }

    [[nodiscard]] std::vector<std::string> dates() const {
        std::vector<std::string> texts;
        for (int row = 0; row < model_.rowCount(); ++row)
            texts.push_back(at(row, UndoSheetModel::runDateRole).toString().toStdString());
        return texts;
    }

    void finishWork() {
        while (!waiting_.empty()) {
            const auto [work, then] = waiting_.front();
            waiting_.erase(waiting_.begin());
            work();
            then();
        }
    }

    testing::TemporaryFolder folder_;
    LinuxFileSystem fileSystem_;
    bool runsAtOnce_ = true;
    std::vector<std::pair<std::function<void()>, std::function<void()>>> waiting_;
    UndoSheetModel model_{fileSystem_,
                          [this](std::function<void()> work, std::function<void()> then) {
                              waiting_.emplace_back(std::move(work), std::move(then));
                              if (runsAtOnce_) finishWork();
                          },
                          QLocale("de_DE")};
    QAbstractItemModelTester tester_{&model_};
};

TEST_F(UndoSheetModelTest, BeginsWithNothing) {
    EXPECT_EQ(model_.count(), 0);
    EXPECT_FALSE(model_.hasSelection());
    EXPECT_EQ(model_.selectedRow(), -1);
    EXPECT_EQ(model_.selectedOperations(), 0);
    EXPECT_EQ(model_.selected(), nullptr);
    EXPECT_EQ(model_.importError(), "");
}

TEST_F(UndoSheetModelTest, TellsOfARunWhatItDid) {
    auto manifest = manifestOf("2024-06-14T11:40:58", 2, 3);
    manifest.sourceRoot = "/a|/b\xFF";
    model_.setManifests({manifest});
    EXPECT_EQ(at(0, UndoSheetModel::runDateRole).toString(), "14.06.2024, 11:40");
    EXPECT_FALSE(at(0, UndoSheetModel::isImportedRole).toBool());
    EXPECT_EQ(at(0, UndoSheetModel::operationsRole).toInt(), 5);
    EXPECT_EQ(at(0, UndoSheetModel::movedRole).toInt(), 2);
    EXPECT_EQ(at(0, UndoSheetModel::copiedRole).toInt(), 3);
    EXPECT_EQ(at(0, UndoSheetModel::sourceRootRole).toString(), QString("/a|/b\uFFFD"));
    EXPECT_EQ(at(0, UndoSheetModel::destRootRole).toString(), "/photos/library");
    EXPECT_FALSE(at(0, UndoSheetModel::isSelectedRole).toBool());
    EXPECT_FALSE(model_.data({}, UndoSheetModel::runDateRole).isValid());
}

TEST_F(UndoSheetModelTest, ListsWhatIsImportedBehindWhatLiesInTheFolder) {
    model_.setManifests({manifestOf("second", 1, 0), manifestOf("first", 1, 0)});
    model_.importFiles({file("a.json", manifestOf("imported", 0, 4))});
    EXPECT_THAT(dates(), ElementsAre("second", "first", "imported"));
    EXPECT_TRUE(at(2, UndoSheetModel::isImportedRole).toBool());
    EXPECT_EQ(model_.selectedRow(), 2);
    EXPECT_EQ(model_.selectedOperations(), 4);
    EXPECT_EQ(model_.importError(), "");
}

TEST_F(UndoSheetModelTest, ListsAnImportedRunOnce) {
    const auto path = file("a.json", manifestOf("imported", 0, 4));
    model_.importFiles({path});
    model_.importFiles({path, path});
    EXPECT_THAT(dates(), ElementsAre("imported"));
    EXPECT_EQ(model_.selectedRow(), 0);
}

TEST_F(UndoSheetModelTest, ARunThatLiesInTheFolderIsNotListedAgainButSelected) {
    model_.setManifests({manifestOf("one", 1, 0), manifestOf("two", 1, 0), manifestOf("two", 1, 0)});
    EXPECT_THAT(dates(), ElementsAre("one", "two"));
    model_.importFiles({file("a.json", manifestOf("two", 0, 9))});
    EXPECT_THAT(dates(), ElementsAre("one", "two"));
    EXPECT_FALSE(at(1, UndoSheetModel::isImportedRole).toBool());
    EXPECT_EQ(model_.selectedRow(), 1);
    EXPECT_EQ(model_.selectedOperations(), 9);
    EXPECT_EQ(*model_.selected(), manifestOf("two", 0, 9));
}

TEST_F(UndoSheetModelTest, AFileThatIsNoManifestIsToldByItsName) {
    for (const auto& path :
         {folder_.write("bad.json", "{"), folder_ / "bad.json", folder_.write("deep/bad.json", "")}) {
        model_.dismissImportError();
        model_.importFiles({path});
        EXPECT_EQ(model_.importError(), "Could not read bad.json — is it a valid Vellomar undo file?");
    }
    EXPECT_EQ(model_.count(), 0);
    EXPECT_FALSE(model_.hasSelection());
}

TEST_F(UndoSheetModelTest, ANameThatIsNoTextIsShownAsWellAsItCan) {
    model_.importFiles({"/nowhere/a\xFF.json"});
    EXPECT_EQ(model_.importError(), QString("Could not read a\uFFFD.json — is it a valid Vellomar undo file?"));
}

TEST_F(UndoSheetModelTest, TheFilesOfOneImportAreTakenInTheirOrder) {
    const auto bad = folder_.write("bad.json", "{");
    const auto first = file("1.json", manifestOf("first", 1, 0));
    const auto second = file("2.json", manifestOf("second", 1, 0));
    model_.importFiles({first, second, bad});
    EXPECT_THAT(dates(), ElementsAre("first", "second"));
    EXPECT_EQ(model_.selectedRow(), 1);
    EXPECT_EQ(model_.importError(), "Could not read bad.json — is it a valid Vellomar undo file?");

    model_.importFiles({bad, first});
    EXPECT_EQ(model_.selectedRow(), 0);
    EXPECT_EQ(model_.importError(), "");
}

TEST_F(UndoSheetModelTest, AFailureStaysUntilASuccessOrUntilItIsDismissed) {
    model_.importFiles({"/nowhere"});
    model_.importFiles({});
    EXPECT_NE(model_.importError(), "");
    const QSignalSpy changes(&model_, &UndoSheetModel::importErrorChanged);
    model_.dismissImportError();
    EXPECT_EQ(model_.importError(), "");
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(UndoSheetModelTest, DroppedFilesAreImportedByTheirBytes) {
    const auto path = file("a\xFF b.json", manifestOf("dropped", 1, 0));
    model_.importUrls({QUrl("https://example.org/x.json"),
                       QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/"))});
    EXPECT_THAT(dates(), ElementsAre("dropped"));
    EXPECT_EQ(model_.importError(), "");
}

TEST_F(UndoSheetModelTest, NothingIsReadBeforeTheBackgroundDoesIt) {
    runsAtOnce_ = false;
    model_.importFiles({folder_ / "late.json"});
    EXPECT_EQ(model_.importError(), "");
    file("late.json", manifestOf("late", 1, 0));
    finishWork();
    EXPECT_THAT(dates(), ElementsAre("late"));
}

TEST_F(UndoSheetModelTest, WhatIsReadForAnEarlierOpeningIsDropped) {
    runsAtOnce_ = false;
    model_.importFiles({file("a.json", manifestOf("a", 1, 0)), "/nowhere"});
    model_.clear();
    finishWork();
    EXPECT_THAT(dates(), IsEmpty());
    EXPECT_EQ(model_.importError(), "");
}

TEST_F(UndoSheetModelTest, WhatIsReadForAModelThatIsGoneIsDropped) {
    std::function<void()> late;
    auto model = std::make_unique<UndoSheetModel>(fileSystem_, [&](auto work, auto then) {
        work();
        late = then;
    });
    model->importFiles({file("a.json", manifestOf("a", 1, 0))});
    model.reset();
    late();
}

TEST_F(UndoSheetModelTest, ClearTakesEverythingBack) {
    model_.setManifests({manifestOf("a", 1, 0)});
    model_.importFiles({file("b.json", manifestOf("b", 1, 0)), "/nowhere"});
    model_.clear();
    EXPECT_THAT(dates(), IsEmpty());
    EXPECT_FALSE(model_.hasSelection());
    EXPECT_EQ(model_.importError(), "");
}

TEST_F(UndoSheetModelTest, AListThatComesLateGoesBeforeWhatWasImported) {
    model_.importFiles({file("b.json", manifestOf("b", 1, 0)), file("c.json", manifestOf("c", 1, 0))});
    model_.setManifests({manifestOf("a", 1, 0), manifestOf("c", 1, 0)});
    EXPECT_THAT(dates(), ElementsAre("a", "c", "b"));
    EXPECT_FALSE(at(1, UndoSheetModel::isImportedRole).toBool());
    EXPECT_EQ(model_.selectedRow(), 1);
    model_.select(0);
    model_.setManifests({});
    EXPECT_FALSE(model_.hasSelection());
}

TEST_F(UndoSheetModelTest, SelectingTellsBothRows) {
    model_.setManifests({manifestOf("a", 1, 0), manifestOf("b", 1, 1)});
    model_.select(0);
    const QSignalSpy rows(&model_, &UndoSheetModel::dataChanged);
    const QSignalSpy selection(&model_, &UndoSheetModel::selectionChanged);
    model_.select(1);
    ASSERT_EQ(rows.count(), 2);
    EXPECT_EQ(rows[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(rows[1][0].toModelIndex().row(), 1);
    EXPECT_EQ(selection.count(), 1);
    EXPECT_FALSE(at(0, UndoSheetModel::isSelectedRole).toBool());
    EXPECT_TRUE(at(1, UndoSheetModel::isSelectedRole).toBool());
    EXPECT_EQ(*model_.selected(), manifestOf("b", 1, 1));
    for (const int none : {-1, 2}) {
        model_.select(none);
        EXPECT_EQ(model_.selectedRow(), 1);
    }
}

TEST_F(UndoSheetModelTest, TheSelectionMovesByOneAndStopsAtTheEnds) {
    model_.selectNext();
    model_.selectPrevious();
    EXPECT_FALSE(model_.hasSelection());
    model_.setManifests({manifestOf("a", 1, 0), manifestOf("b", 1, 0), manifestOf("c", 1, 0)});
    model_.selectPrevious();
    EXPECT_EQ(model_.selectedRow(), 2);
    model_.selectNext();
    EXPECT_EQ(model_.selectedRow(), 2);
    model_.selectPrevious();
    model_.selectPrevious();
    model_.selectPrevious();
    EXPECT_EQ(model_.selectedRow(), 0);
    model_.clear();
    model_.setManifests({manifestOf("a", 1, 0), manifestOf("b", 1, 0)});
    model_.selectNext();
    EXPECT_EQ(model_.selectedRow(), 0);
}

}  // namespace
}  // namespace vellomar
