#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/TextTable.h"
#include "ui/help/Changelog.h"

namespace vellomar {
namespace {

// A group of changes begins with "version | date | category"; its items follow, each behind two blanks.
QStringList expectedLines() {
    return testing::linesOfTable("releases.txt");
}

QStringList linesOf(const QModelIndex& release) {
    QStringList lines;
    const auto name =
        release.data(Changelog::versionRole).toString() + " | " + release.data(Changelog::dateRole).toString() + " | ";
    for (const auto& change : release.data(Changelog::changesRole).toList()) {
        const auto group = change.toMap();
        lines << name + group["category"].toString();
        for (const auto& item : group["items"].toStringList())
            lines << "  " + item;
    }
    return lines;
}

TEST(Changelog, HasTheTextsInTheirOrder) {
    const Changelog changelog;
    QStringList lines;
    for (int row = 0; row < changelog.rowCount(); ++row)
        lines << linesOf(changelog.index(row));
    EXPECT_EQ(lines, expectedLines());
}

TEST(Changelog, HasEachReleaseOnceAndTheNewestIsCurrent) {
    const Changelog changelog;
    ASSERT_EQ(changelog.rowCount(), 32);
    QStringList versions;
    for (int row = 0; row < changelog.rowCount(); ++row) {
        versions << changelog.index(row).data(Changelog::versionRole).toString();
        EXPECT_EQ(changelog.index(row).data(Changelog::isCurrentRole).toBool(), versions.last() == "4.6");
    }
    EXPECT_EQ(versions.removeDuplicates(), 0);
    EXPECT_EQ(versions.last(), "1.0");
}

TEST(Changelog, OpensAndCloses) {
    Changelog changelog;
    EXPECT_FALSE(changelog.isOpen());
    changelog.open();
    EXPECT_TRUE(changelog.isOpen());
    changelog.dismiss();
    EXPECT_FALSE(changelog.isOpen());
}

}  // namespace
}  // namespace vellomar
