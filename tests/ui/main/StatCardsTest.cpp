#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/main/StatCards.h"

namespace vellomar {

void PrintTo(const StatCard& card, std::ostream* stream) {
    *stream << card.label.toStdString() << ": " << card.value.toStdString();
}

namespace {

using Cards = std::vector<StatCard>;

constexpr RunEstimate kEstimate{1'200, 5'400'000'000, 3'661};

TEST(StatCards, BeforeAnythingIsKnown) {
    EXPECT_EQ(
        statCards({}, {}, 0),
        (Cards{{"Total files", "—"}, {"Total size", "—"}, {"Skipped", "—"}, {"Duplicates", "—"}, {"Est. time", "—"}}));
}

TEST(StatCards, WithAnEstimate) {
    EXPECT_EQ(statCards({}, kEstimate, 0), (Cards{{"Total files", "1200"},
                                                  {"Total size", "5.4 GB"},
                                                  {"Skipped", "—"},
                                                  {"Duplicates", "—"},
                                                  {"Est. time", "1h 01m 01s"}}));
}

TEST(StatCards, DuringARun) {
    PublishedState state;
    state.isRunning = true;
    state.totalFilesScanned = 900;
    state.statusText = "Processing 5 of 900 — ETA 1m 30s";
    state.duplicateDestPaths = {"/a", "/b"};
    EXPECT_EQ(statCards(state, kEstimate, 3), (Cards{{"Total files", "900 / 1200"},
                                                     {"Total size", "5.4 GB"},
                                                     {"Skipped", "3"},
                                                     {"Duplicates", "2"},
                                                     {"ETA", "1m 30s"}}));
    state.statusText = "Scanning…";
    const auto cards = statCards(state, {}, 0);
    EXPECT_EQ(cards.front(), (StatCard{"Total files", "900"}));
    EXPECT_EQ(cards.back(), (StatCard{"ETA", "—"}));
}

TEST(StatCards, OfTheLastRunShowADashForZero) {
    PublishedState state;
    EXPECT_EQ(lastRunCards(state, 0),
              (Cards{{"Files Sorted", "—"}, {"Errors", "—"}, {"Duplicates", "—"}, {"Skipped", "—"}}));
    state.totalFilesScanned = 5;
    state.verifyFailures = 1;
    state.duplicateDestPaths = {"/a"};
    EXPECT_EQ(lastRunCards(state, 2),
              (Cards{{"Files Sorted", "5"}, {"Errors", "1"}, {"Duplicates", "1"}, {"Skipped", "2"}}));
}

TEST(StatCards, ARowIsSkippedByItsActionsBeginning) {
    PlanRow row;
    for (const auto* action : {"SKIP", "SKIP (exists)"}) {
        row.action = action;
        EXPECT_TRUE(isSkipped(row)) << action;
    }
    for (const auto* action : {"", "COPY->/SKIP", "skip"}) {
        row.action = action;
        EXPECT_FALSE(isSkipped(row)) << action;
    }
}

}  // namespace
}  // namespace vellomar
