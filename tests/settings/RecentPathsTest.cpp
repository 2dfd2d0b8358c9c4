#include <gmock/gmock.h>

#include "settings/RecentPaths.h"
#include "settings/SettingsFile.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::SettingsFile;

TEST(RecentPaths, AreNewestFirstAndAtMostFive) {
    SettingsFile file;
    {
        const auto store = file.open();
        EXPECT_THAT(recentSources(*store), IsEmpty());
        for (const auto* path : {"/1", "/2", "/3", "/4", "/5"})
            addRecentSource(*store, path);
        EXPECT_THAT(recentSources(*store), ElementsAre("/5", "/4", "/3", "/2", "/1"));
        addRecentSource(*store, "/6");
        EXPECT_THAT(recentSources(*store), ElementsAre("/6", "/5", "/4", "/3", "/2"));
        addRecentSource(*store, "/3");
        EXPECT_THAT(recentSources(*store), ElementsAre("/3", "/6", "/5", "/4", "/2"));
        EXPECT_THAT(recentDests(*store), IsEmpty());
        addRecentDest(*store, "/dest");
    }
    EXPECT_EQ(file.content(), (Json{{"recent_dests", "/dest"}, {"recent_sources", "/3|/6|/5|/4|/2"}}));
    const auto store = file.open();
    EXPECT_THAT(recentSources(*store), ElementsAre("/3", "/6", "/5", "/4", "/2"));
    EXPECT_THAT(recentDests(*store), ElementsAre("/dest"));
}

TEST(RecentPaths, ASeparatorInAPathSplitsIt) {
    SettingsFile file;
    const auto store = file.open();
    addRecentDest(*store, "/a|b");
    EXPECT_THAT(recentDests(*store), ElementsAre("/a", "b"));
}

TEST(RecentPaths, ALongListIsShortenedAndEveryRepeatGoes) {
    SettingsFile file(R"({"recent_dests": "/1|/2|/1|/3|/4|/5|/6"})");
    const auto store = file.open();
    addRecentDest(*store, "/1");
    EXPECT_THAT(recentDests(*store), ElementsAre("/1", "/2", "/3", "/4", "/5"));
}

}  // namespace
}  // namespace vellomar
