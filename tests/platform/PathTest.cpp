#include <gtest/gtest.h>

#include "platform/Path.h"

namespace vellomar {
namespace {

TEST(Path, SplitsNamesAtTheirLastDot) {
    struct Case {
        std::string_view path;
        std::string_view name;
        std::string_view stem;
        std::string_view extension;
    };
    constexpr Case cases[] = {
        {"/a/b.jpg", "b.jpg", "b", "jpg"},    {"/a/b.c.JPG", "b.c.JPG", "b.c", "JPG"},
        {"/a.b/noext", "noext", "noext", ""}, {"/a/.hidden", ".hidden", ".hidden", ""},
        {"/a/dot.", "dot.", "dot.", ""},      {"name.jpg", "name.jpg", "name", "jpg"},
        {"/a/.h.jpg", ".h.jpg", ".h", "jpg"}, {"", "", "", ""},
    };
    for (const auto& [path, name, stem, extension] : cases) {
        SCOPED_TRACE(path);
        EXPECT_EQ(lastPathComponent(path), name);
        EXPECT_EQ(pathStem(path), stem);
        EXPECT_EQ(pathExtension(path), extension);
    }
}

TEST(Path, FindsParents) {
    EXPECT_EQ(parentPath("/a/b"), "/a");
    EXPECT_EQ(parentPath("/a"), "/");
    EXPECT_EQ(parentPath("a"), "");
}

TEST(Path, JoinsWithOneSlash) {
    EXPECT_EQ(joinPath("/a", "b"), "/a/b");
    EXPECT_EQ(joinPath("/", "b"), "/b");
    EXPECT_EQ(joinPath("/a/", "b"), "/a/b");
    EXPECT_EQ(joinPath("", "b"), "b");
}

TEST(Path, TrimsTrailingSlashesButKeepsTheRoot) {
    EXPECT_EQ(withoutTrailingSlashes("/a//"), "/a");
    EXPECT_EQ(withoutTrailingSlashes("/a"), "/a");
    EXPECT_EQ(withoutTrailingSlashes("/"), "/");
    EXPECT_EQ(withoutTrailingSlashes("//"), "/");
    EXPECT_EQ(withoutTrailingSlashes(""), "");
}

TEST(Path, TellsWhatLiesWithinAFolder) {
    EXPECT_TRUE(isWithin("/a/b", "/a"));
    EXPECT_TRUE(isWithin("/a", "/a"));
    EXPECT_TRUE(isWithin("/a", "/"));
    EXPECT_FALSE(isWithin("/ab", "/a"));
    EXPECT_FALSE(isWithin("/a", "/a/b"));
}

}  // namespace
}  // namespace vellomar
