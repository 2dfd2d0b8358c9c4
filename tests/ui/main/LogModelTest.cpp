#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

#include "engine/Publication.h"
#include "ui/QtPrinters.h"
#include "ui/main/LogModel.h"
#include "ui/theme/Theme.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;

class LogModelTest : public ::testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> shown() const {
        std::vector<std::string> lines;
        for (int row = 0; row < model.rowCount(); ++row)
            lines.push_back(model.index(row).data(LogModel::lineRole).toString().toStdString());
        return lines;
    }

    EngineEvents events;
    Publication published{&events};
    LogModel model{published.state(), events};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(LogModelTest, GrowsWithTheLog) {
    EXPECT_TRUE(model.isEmpty());
    published.appendLogLines({"Scanning", "✓ Copied: a"});
    published.appendLogLines({"✗ Failed: b"});
    EXPECT_THAT(shown(), ElementsAre("Scanning", "✓ Copied: a", "✗ Failed: b"));
    EXPECT_FALSE(model.isEmpty());
}

TEST_F(LogModelTest, ATabShowsItsPart) {
    published.appendLogLines({"Scanning", "✓ Copied: a", "⚠ Odd", "[DRY] c", "✗ Failed: b"});
    model.setFilter(static_cast<int>(LogFilter::errors));
    EXPECT_THAT(shown(), ElementsAre("⚠ Odd", "✗ Failed: b"));
    model.setFilter(static_cast<int>(LogFilter::moved));
    EXPECT_THAT(shown(), ElementsAre("✓ Copied: a", "[DRY] c"));
    published.appendLogLines({"✓ Copied: d", "✗ Failed: e"});
    EXPECT_THAT(shown(), ElementsAre("✓ Copied: a", "[DRY] c", "✓ Copied: d"));
    model.setFilter(static_cast<int>(LogFilter::all));
    EXPECT_EQ(model.rowCount(), 7);
}

TEST_F(LogModelTest, TheOldestLinesGoWhenTheLogIsFull) {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < kMostLogLines; ++i)
        lines.push_back(i % 2 == 0 ? "✓ even" : "odd");
    published.appendLogLines(lines);
    model.setFilter(static_cast<int>(LogFilter::moved));
    published.appendLogLines({"✓ new", "new", "✓ newest"});

    EXPECT_EQ(model.rowCount(), static_cast<int>(kMostLogLines / 2));
    EXPECT_EQ(shown().front(), "✓ even");
    EXPECT_EQ(shown().back(), "✓ newest");
    model.setFilter(static_cast<int>(LogFilter::all));
    EXPECT_EQ(model.rowCount(), static_cast<int>(kMostLogLines));
    EXPECT_EQ(shown().front(), "odd");
}

TEST_F(LogModelTest, ANewRunEmptiesIt) {
    published.appendLogLines({"Scanning"});
    published.resetPublishedState();
    EXPECT_THAT(shown(), ElementsAre());
    EXPECT_TRUE(model.isEmpty());
    published.appendLogLines({"Again"});
    EXPECT_THAT(shown(), ElementsAre("Again"));
}

TEST_F(LogModelTest, TheTextIsThatOfAllLinesWhateverTheTab) {
    EXPECT_EQ(model.allText(), "");
    published.appendLogLines({"", "✗ \xFF", "last"});
    model.setFilter(static_cast<int>(LogFilter::moved));
    EXPECT_EQ(model.allText(), "\n✗ \xFF\nlast");
}

TEST_F(LogModelTest, ALineHasItsColours) {
    published.appendLogLines({"✗ Failed", "dup: a"});
    const auto& theme = Theme::shared();
    EXPECT_EQ(model.index(0).data(LogModel::colourRole).value<QColor>(), theme.logRed);
    EXPECT_EQ(model.index(0).data(LogModel::barColourRole).value<QColor>(), theme.logRed);
    EXPECT_EQ(model.index(1).data(LogModel::colourRole).value<QColor>(), theme.logAmber);
    EXPECT_EQ(model.index(1).data(LogModel::barColourRole).value<QColor>(), theme.hairline);
    EXPECT_EQ(model.data({}, LogModel::lineRole), QVariant());
}

}  // namespace
}  // namespace vellomar
