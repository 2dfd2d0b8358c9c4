#include <map>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/TextTable.h"
#include "ui/theme/Symbols.h"
#include "ui/wizard/TourItems.h"

namespace vellomar {
namespace {

// A stop begins with "title | icon | x | y | edge"; its description is what follows, behind two blanks.
QStringList expectedStops() {
    return testing::linesOfTable("tour.txt");
}

QString edgeName(CalloutEdge edge) {
    static const std::map<CalloutEdge, QString> kNames = {
        {CalloutEdge::leading, "leading"}, {CalloutEdge::top, "top"}, {CalloutEdge::trailing, "trailing"}};
    return kNames.at(edge);
}

TEST(TourItems, AreTheStopsInTheirOrder) {
    const auto items = tourItems();
    ASSERT_EQ(items.size(), 6);
    QStringList lines;
    for (const auto& item : items) {
        lines << QStringList{item.title, item.icon, QString::number(item.position.x()),
                             QString::number(item.position.y()), edgeName(item.arrowEdge)}
                     .join(" | ");
        for (const auto& line : item.description.split('\n'))
            lines << "  " + line;
    }
    EXPECT_EQ(lines, expectedStops());
}

TEST(TourItems, HaveSymbolsThatThereAreAndAnAreaEach) {
    QStringList areas;
    for (const auto& item : tourItems()) {
        EXPECT_NE(iconOf(item.icon), "") << item.icon.toStdString();
        areas << item.area;
    }
    EXPECT_EQ(areas, QStringList({"sources", "destination", "config", "actions", "dashboard", "tools"}));
}

}  // namespace
}  // namespace vellomar
