#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "naming/FolderSegments.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(FolderSegments, SplitAtSlashesOfBothKinds) {
    EXPECT_THAT(folderSegments("a/b c\\d"), ElementsAre("a", "b c", "d"));
    EXPECT_THAT(folderSegments("a"), ElementsAre("a"));
}

TEST(FolderSegments, EmptyNamesAreLeftOut) {
    EXPECT_THAT(folderSegments("/a//b\\/c\\"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(folderSegments(""), IsEmpty());
    EXPECT_THAT(folderSegments("/\\/"), IsEmpty());
}

}  // namespace
}  // namespace vellomar
