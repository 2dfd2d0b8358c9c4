#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "naming/EventFolders.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Tail = std::vector<std::string>;

FolderRenameRule folderRule(std::string matchText, std::string replacement) {
    FolderRenameRule result;
    result.matchText = std::move(matchText);
    result.replacement = std::move(replacement);
    return result;
}

TEST(EventFolders, AFileStraightInTheSourceHasNoEvent) {
    const auto folders = meaningfulFolders("", {}, false);
    EXPECT_EQ(folders.first, std::nullopt);
    EXPECT_THAT(folders.tail, IsEmpty());
}

TEST(EventFolders, TheOutermostMeaningfulFolderIsTheEvent) {
    struct Case {
        std::string_view path;
        Tail tail;
    };
    const Case cases[] = {
        {"Italy/Rome/Day 1", {"Italy", "Rome", "Day 1"}},
        {"2012/Hawaii", {"Hawaii"}},
        {"1912/Hawaii", {"Hawaii"}},
        {"1899/Hawaii", {"1899", "Hawaii"}},
        {"2100/Hawaii", {"2100", "Hawaii"}},
        {"20123", {"20123"}},
        {"08", {"08"}},
        {"2012-08", {"2012-08"}},
        {"2023/08 - August/Vacation", {"08 - August", "Vacation"}},
        {"DCIM/Wedding/100APPLE", {"Wedding"}},
        {"Camera Uploads", {"Camera Uploads"}},
        {"a\\b", {"a", "b"}},
        {"//a//b\\\\c/", {"a", "b", "c"}},
        {"R\xf6me", {"R\xf6me"}},
    };
    for (const auto& [path, tail] : cases) {
        SCOPED_TRACE(path);
        const auto folders = meaningfulFolders(path, {}, false);
        EXPECT_EQ(folders.first, tail.front());
        EXPECT_EQ(folders.tail, tail);
    }
}

TEST(EventFolders, FoldersThatSayNothingArePassedOverInAnyCase) {
    for (std::string_view path : {"DCIM/100APPLE", "Dcim", "dcim", "camera", ".thumbnails", "@eaDir", "2012",
                                  "1999/2001", "Photos\\RAW", "/"}) {
        SCOPED_TRACE(path);
        const auto folders = meaningfulFolders(path, {}, false);
        EXPECT_EQ(folders.first, std::nullopt);
        EXPECT_THAT(folders.tail, IsEmpty());
    }
}

TEST(EventFolders, RulesRenameWhatIsMeaningful) {
    const auto folders = meaningfulFolders("Hawaii trip/Rome", {folderRule("hawaii", "Hawaii 2019")}, false);
    EXPECT_EQ(folders.first, "Hawaii 2019");
    EXPECT_THAT(folders.tail, ElementsAre("Hawaii 2019", "Rome"));
}

TEST(EventFolders, ARuleBringsNoIgnoredFolderBack) {
    EXPECT_EQ(meaningfulFolders("DCIM", {folderRule("dcim", "Phone")}, false).first, std::nullopt);
    EXPECT_EQ(meaningfulFolders("2012", {folderRule("2012", "That year")}, false).first, std::nullopt);
}

TEST(EventFolders, WhatARuleGivesIsNeverPassedOver) {
    EXPECT_THAT(meaningfulFolders("Phone/Rome", {folderRule("phone", "DCIM"), folderRule("rome", "2012")}, false).tail,
                ElementsAre("DCIM", "2012"));
}

TEST(EventFolders, ARuleWithAnEmptyReplacementGivesAnEmptyEvent) {
    const auto folders = meaningfulFolders("Misc/Rome", {folderRule("misc", "")}, false);
    EXPECT_EQ(folders.first, "");
    EXPECT_THAT(folders.tail, ElementsAre("", "Rome"));
}

TEST(EventFolders, FloppyModeCountsForEachFolder) {
    EXPECT_THAT(meaningfulFolders("floppy disks/Floppy Dorno", {}, true).tail, ElementsAre("floppy disks", "Floppy"));
    EXPECT_THAT(meaningfulFolders("Floppy Dorno", {}, false).tail, ElementsAre("Floppy Dorno"));
}

}  // namespace
}  // namespace vellomar
