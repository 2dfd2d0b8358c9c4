#include <gtest/gtest.h>

#include "engine/model/IgnoreDirNames.h"

namespace vellomar {
namespace {

TEST(IgnoreDirNames, FoldersThatSayNothing) {
    constexpr std::string_view kNames[] = {
        "dcim",        "camera",  "100apple", "100media", "apple",    "android",   "images", "image",      "img",
        "photo",       "photos",  "pictures", "pics",     "video",    "videos",    "movies", "movie",      "media",
        "export",      "exports", "import",   "imports",  "original", "originals", "edited", "edits",      "raw",
        "raws",        "backup",  "backups",  "archive",  "archives", "temp",      "tmp",    "thumbnails", "thumbs",
        ".thumbnails", ".thumbs", ".git",     ".svn",     "@eadir"};
    EXPECT_EQ(std::size(kNames), 41U);
    for (const auto name : kNames)
        EXPECT_TRUE(isIgnoredDirName(name)) << name;
}

TEST(IgnoreDirNames, FoldersThatMaySaySomething) {
    for (const char* name : {"", "DCIM", "dcim ", "101apple", "rome", "raw files", "my photos", "eadir", "picture"})
        EXPECT_FALSE(isIgnoredDirName(name)) << name;
}

}  // namespace
}  // namespace vellomar
