#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/main/Notices.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> texts(const Notices& notices) {
    std::vector<std::string> texts;
    for (int row = 0; row < notices.rowCount(); ++row)
        texts.push_back(notices.index(row).data(Notices::textRole).toString().toStdString());
    return texts;
}

TEST(Notices, TellOneThingAboutEachMatter) {
    Notices notices;
    const QAbstractItemModelTester tester(&notices, QAbstractItemModelTester::FailureReportingMode::Fatal);
    notices.tell("settings", "cannot be saved");
    notices.tell("folders", "no folder");
    EXPECT_THAT(texts(notices), ElementsAre("cannot be saved", "no folder"));
    notices.tell("settings", "still cannot be saved");
    EXPECT_THAT(texts(notices), ElementsAre("no folder", "still cannot be saved"));
    notices.tell("folders", "");
    EXPECT_THAT(texts(notices), ElementsAre("still cannot be saved"));
    notices.tell("nothing", "");
    EXPECT_EQ(notices.count(), 1);
}

TEST(Notices, AreProblemsUnlessTheyAreNews) {
    Notices notices;
    notices.tell("a", "1");
    notices.tell("b", "2", Notices::Kind::news);
    EXPECT_FALSE(notices.index(0).data(Notices::isNewsRole).toBool());
    EXPECT_TRUE(notices.index(1).data(Notices::isNewsRole).toBool());
}

TEST(Notices, CanBePutAway) {
    Notices notices;
    notices.tell("a", "1");
    notices.tell("b", "2");
    notices.dismiss(0);
    EXPECT_THAT(texts(notices), ElementsAre("2"));
    notices.dismiss(5);
    notices.dismiss(-1);
    EXPECT_EQ(notices.count(), 1);
}

}  // namespace
}  // namespace vellomar
