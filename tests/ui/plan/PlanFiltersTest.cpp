#include <QSignalSpy>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/plan/PlanFilters.h"
#include "ui/plan/PlanForTests.h"
#include "ui/plan/PlanModel.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using testing::planRow;
using testing::PublishedPlan;

std::vector<std::string> valuesOf(const FilterColumn& column) {
    std::vector<std::string> values;
    for (int place = 0; place < column.rowCount(); ++place) {
        const auto index = column.index(place);
        values.push_back(index.data(FilterColumn::valueRole).toString().toStdString() + " " +
                         index.data(FilterColumn::rowsRole).toString().toStdString() +
                         (index.data(FilterColumn::isSelectedRole).toBool() ? " selected" : ""));
    }
    return values;
}

class PlanFiltersTest : public ::testing::Test {
protected:
    PlanFiltersTest() {
        plan.add({planRow("/in/trip/A.jpg", "/out/2023/08 - August/Vacation/a.jpg", "2023-08-14 10:00:00", "X100V"),
                  planRow("/in/b.jpg", "/out/2023/08 - August/b.jpg", "2023-08-14 11:00:00", "iPhone 14 Pro"),
                  planRow("/in/c.jpg", "/out/2019/05 - May/Wedding/c.jpg", "2019-05-04 11:00:00", "X100V"),
                  planRow("/in/d.jpg", "/out/2019/05 - May/d.jpg", "2019-05-04 12:00:00", "—")});
    }

    [[nodiscard]] std::vector<std::string> shown() const {
        std::vector<std::string> names;
        for (int row = 0; row < rows.count(); ++row)
            names.push_back(rows.data(rows.index(row), PlanModel::fileNameRole).toString().toStdString());
        return names;
    }

    PublishedPlan plan;
    PlanFilters filters{plan.state, plan.events};
    PlanModel rows{plan.state, plan.events, &filters};
};

TEST_F(PlanFiltersTest, ListsTheValuesInOrderWithTheirCounts) {
    EXPECT_THAT(valuesOf(*filters.cameras()), ElementsAre("X100V 2", "iPhone 14 Pro 1"));
    EXPECT_THAT(valuesOf(*filters.years()), ElementsAre("2019 2", "2023 2"));
    EXPECT_THAT(valuesOf(*filters.folders()), ElementsAre("Vacation 1", "Wedding 1"));
}

TEST_F(PlanFiltersTest, ValuesOfOneColumnAreAlternatives) {
    filters.cameras()->toggle(0);
    EXPECT_THAT(shown(), ElementsAre("A.jpg", "c.jpg"));
    filters.cameras()->toggle(1);
    EXPECT_THAT(shown(), ElementsAre("A.jpg", "b.jpg", "c.jpg"));
    filters.cameras()->toggle(0);
    EXPECT_THAT(shown(), ElementsAre("b.jpg"));
}

TEST_F(PlanFiltersTest, ColumnsMustAllPass) {
    filters.cameras()->toggle(0);
    filters.years()->toggle(1);
    EXPECT_THAT(shown(), ElementsAre("A.jpg"));
    filters.folders()->toggle(1);
    EXPECT_THAT(shown(), ElementsAre());
    EXPECT_EQ(filters.activeCount(), 3);
    EXPECT_THAT(valuesOf(*filters.years()), ElementsAre("2019 2", "2023 2 selected")) << "all rows are counted";
}

TEST_F(PlanFiltersTest, TheSearchLooksIntoFourFieldsWhateverTheCase) {
    for (const auto& [text, found] :
         std::vector<std::pair<QString, std::vector<std::string>>>{{"TRIP", {"A.jpg"}},
                                                                   {"wedding/c", {"c.jpg"}},
                                                                   {"IPHONE", {"b.jpg"}},
                                                                   {"2019-05-04 12", {"d.jpg"}},
                                                                   {"nothing like it", {}},
                                                                   {"", {"A.jpg", "b.jpg", "c.jpg", "d.jpg"}}}) {
        filters.setSearchText(text);
        EXPECT_EQ(shown(), found) << text.toStdString();
    }
}

TEST_F(PlanFiltersTest, ClearingKeepsTheSearch) {
    filters.setSearchText("jpg");
    filters.cameras()->toggle(0);
    filters.years()->toggle(0);
    filters.clear();
    EXPECT_EQ(filters.activeCount(), 0);
    EXPECT_EQ(filters.searchText(), "jpg");
    EXPECT_EQ(rows.count(), 4);
    filters.cameras()->toggle(0);
    filters.years()->toggle(0);
    filters.cameras()->clearSelection();
    EXPECT_EQ(filters.activeCount(), 1) << "one column by itself";
    EXPECT_TRUE(filters.years()->hasSelection());
}

TEST_F(PlanFiltersTest, RowsThatComeAreCountedAndFiltered) {
    filters.cameras()->toggle(0);
    plan.add({planRow("/in/e.jpg", "/out/2018/05 - May/Zoo/e.jpg", "2018-05-04 11:00:00", "X100V"),
              planRow("/in/f.jpg", "/out/2018/05 - May/Zoo/f.jpg", "2018-05-04 11:00:00", "A7 IV")});
    EXPECT_THAT(shown(), ElementsAre("A.jpg", "c.jpg", "e.jpg"));
    EXPECT_THAT(valuesOf(*filters.cameras()), ElementsAre("A7 IV 1", "X100V 3 selected", "iPhone 14 Pro 1"));
    EXPECT_THAT(valuesOf(*filters.years()), ElementsAre("2018 2", "2019 2", "2023 2"));
    filters.setSearchText("f.jpg");
    EXPECT_EQ(rows.count(), 0);
    filters.clear();
    EXPECT_THAT(shown(), ElementsAre("f.jpg"));
}

TEST_F(PlanFiltersTest, ANewRunStartsTheListsAnewAndKeepsTheSelection) {
    filters.cameras()->toggle(0);
    filters.setSearchText("a.jpg");
    plan.clear();
    EXPECT_EQ(rows.count(), 0);
    EXPECT_EQ(filters.cameras()->count(), 0);
    EXPECT_EQ(filters.activeCount(), 1);
    plan.add({planRow("/new/a.jpg", "/out/a.jpg", "2020-01-01 00:00:00", "X100V"),
              planRow("/new/b.jpg", "/out/b.jpg", "2020-01-01 00:00:00", "X100V")});
    EXPECT_THAT(shown(), ElementsAre("a.jpg")) << "the search looks at the new rows";
    filters.clear();
    EXPECT_EQ(filters.activeCount(), 0);
}

TEST_F(PlanFiltersTest, APlaceThatIsNoneTogglesNothing) {
    filters.cameras()->toggle(-1);
    filters.cameras()->toggle(2);
    EXPECT_EQ(filters.activeCount(), 0);
}

TEST_F(PlanFiltersTest, TheSameTextAgainChangesNothing) {
    filters.setSearchText("a");
    const QSignalSpy changed(&filters, &PlanFilters::changed);
    filters.setSearchText("a");
    EXPECT_EQ(changed.count(), 0);
}

}  // namespace
}  // namespace vellomar
