#include <gmock/gmock.h>

#include "settings/JsonValues.h"
#include "settings/SettingsFile.h"
#include "settings/SourceList.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::SettingsFile;

constexpr auto kId = "00010203-0405-4607-8809-0A0B0CDDEEFF";

std::vector<std::string> loadedPaths(SettingsFile& file) {
    const auto store = file.open();
    SourceList list(*store);
    list.loadSourceEntries();
    return list.paths();
}

// A settings file that holds `text` as the list of sources.
SettingsFile withEntries(const std::string& text) {
    return SettingsFile(Json{{"source_entries_v2", jsonOfBytes(text)}}.dump());
}

TEST(SourceList, IsEmptyAtFirst) {
    SettingsFile file;
    EXPECT_THAT(loadedPaths(file), IsEmpty());
    EXPECT_FALSE(testing::exists(file.path()));
}

TEST(SourceList, KeepsWhatIsAddedInItsOrder) {
    SettingsFile file;
    {
        const auto store = file.open();
        SourceList list(*store);
        list.loadSourceEntries();
        EXPECT_TRUE(list.add("/z"));
        EXPECT_TRUE(list.add("/a/caf\xE9"));
        EXPECT_FALSE(list.add("/z")) << "it is there already";
        EXPECT_NE(list.entries()[0].id, list.entries()[1].id);
        EXPECT_EQ(list.entries()[0].bookmarkData, std::nullopt);
    }
    EXPECT_THAT(loadedPaths(file), ElementsAre("/z", "/a/caf\xE9"));
}

TEST(SourceList, KeepsItsIdentitiesAndBookmarks) {
    const auto text = std::string(R"([{"id":")") + kId + R"(","path":"/a","bookmarkData":"bGlnaHQ=","later":1}])";
    auto file = withEntries(text);
    {
        const auto store = file.open();
        SourceList list(*store);
        list.loadSourceEntries();
        ASSERT_EQ(list.entries().size(), 1U);
        EXPECT_EQ(list.entries()[0].id.text(), kId);
        EXPECT_EQ(list.entries()[0].bookmarkData, "light");
        list.add("/b");
    }
    const auto store = file.open();
    const auto written = parseJson(store->bytes("source_entries_v2").value()).value();
    EXPECT_EQ(written[0], (Json{{"id", kId}, {"path", "/a"}, {"bookmarkData", "bGlnaHQ="}}));
    EXPECT_EQ(written[1]["path"], "/b");
    EXPECT_EQ(written[1].size(), 2U) << "an entry without a bookmark has no member for it";
}

TEST(SourceList, TakesOutOneOrAll) {
    SettingsFile file;
    {
        const auto store = file.open();
        SourceList list(*store);
        for (const auto* path : {"/a", "/b", "/c"})
            list.add(path);
        list.removeAt(1);
        EXPECT_THAT(list.paths(), ElementsAre("/a", "/c"));
    }
    EXPECT_THAT(loadedPaths(file), ElementsAre("/a", "/c"));
    {
        const auto store = file.open();
        SourceList list(*store);
        list.loadSourceEntries();
        list.clear();
    }
    EXPECT_THAT(loadedPaths(file), IsEmpty());
}

TEST(SourceList, AnEarlierVersionsFolderIsTakenOverOnce) {
    SettingsFile file(R"({"last_sourcePath": "/old", "bookmark_source": {"base64": "bGlnaHQ="}})");
    {
        const auto store = file.open();
        SourceList list(*store);
        list.loadSourceEntries();
        ASSERT_THAT(list.paths(), ElementsAre("/old"));
        EXPECT_EQ(list.entries()[0].bookmarkData, "light");
    }
    EXPECT_EQ(file.content()["last_sourcePath"], "/old") << "it stays";
    EXPECT_EQ(file.content()["bookmark_source"], (Json{{"base64", "bGlnaHQ="}}));
    {
        const auto store = file.open();
        SourceList list(*store);
        list.loadSourceEntries();
        EXPECT_THAT(list.paths(), ElementsAre("/old"));
        list.clear();
    }
    EXPECT_THAT(loadedPaths(file), IsEmpty()) << "the list counts from now on, even an empty one";
}

TEST(SourceList, AListThatCannotBeReadCountsAsNone) {
    const std::vector<std::string> damaged = {
        "",
        "no json",
        "{}",
        "[1]",
        R"([{"path":"/a"}])",
        R"([{"id":"00010203-0405-4607-8809-0A0B0CDDEEFF"}])",
        R"([{"id":"nonsense","path":"/a"}])",
        R"([{"id":"00010203-0405-4607-8809-0A0B0CDDEEFF","path":7}])",
        R"([{"id":"00010203-0405-4607-8809-0A0B0CDDEEFF","path":"/a","bookmarkData":"*"}])",
        R"([{"id":"00010203-0405-4607-8809-0A0B0CDDEEFF","path":"/a"},{"path":"/b"}])"};
    for (const auto& text : damaged) {
        SCOPED_TRACE(text);
        auto file = withEntries(text);
        EXPECT_THAT(loadedPaths(file), IsEmpty());
        file.open()->setValue("last_sourcePath", "/old");
        EXPECT_THAT(loadedPaths(file), ElementsAre("/old"));
    }
}

TEST(SourceList, ANullBookmarkIsNone) {
    auto file = withEntries(std::string(R"([{"id":")") + kId + R"(","path":"/a","bookmarkData":null}])");
    EXPECT_THAT(loadedPaths(file), ElementsAre("/a"));
}

}  // namespace
}  // namespace vellomar
