#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/wizard/WizardSources.h"

namespace vellomar {
namespace {

TEST(WizardSources, TellOfEachChange) {
    WizardSources sources;
    const QAbstractItemModelTester tester(&sources);
    const QSignalSpy counts(&sources, &WizardSources::countChanged);
    sources.add("/a/first");
    sources.add("/a/second");
    sources.add("/a/first");
    EXPECT_EQ(counts.count(), 2) << "one of that path is there";
    sources.removeAt(0);
    sources.setPaths({"/b", "/c"});
    EXPECT_EQ(counts.count(), 4);
    EXPECT_EQ(sources.firstPath(), "/b");
    sources.setMissing({"/c", "/elsewhere"});
    EXPECT_FALSE(sources.index(0).data(WizardSources::isMissingRole).toBool());
    EXPECT_TRUE(sources.index(1).data(WizardSources::isMissingRole).toBool());
    EXPECT_EQ(sources.index(1).data(WizardSources::nameRole), "c");
    sources.setPaths({});
    EXPECT_EQ(sources.firstPath(), "");
}

}  // namespace
}  // namespace vellomar
