#include <gtest/gtest.h>

#include "ui/components/ScrollThumb.h"

namespace vellomar {
namespace {

TEST(ScrollThumb, IsNotThereWhenTheContentFits) {
    EXPECT_FALSE(scrollThumb(0, 99, 100).isVisible);
    EXPECT_FALSE(scrollThumb(0, 100, 100).isVisible);
    EXPECT_FALSE(scrollThumb(0, 0, 0).isVisible);
    EXPECT_FALSE(scrollThumb(0, 100, 0).isVisible);
}

TEST(ScrollThumb, ShowsWhichPartIsSeen) {
    EXPECT_EQ(scrollThumb(0, 400, 200), (ScrollThumb{true, 0, 100}));
    EXPECT_EQ(scrollThumb(100, 400, 200), (ScrollThumb{true, 50, 100}));
    EXPECT_EQ(scrollThumb(200, 400, 200), (ScrollThumb{true, 100, 100}));
}

TEST(ScrollThumb, StaysOnItsTrack) {
    EXPECT_EQ(scrollThumb(-50, 400, 200), (ScrollThumb{true, 0, 100}));
    EXPECT_EQ(scrollThumb(999, 400, 200), (ScrollThumb{true, 100, 100}));
}

TEST(ScrollThumb, IsNeverTooSmallToSee) {
    EXPECT_EQ(scrollThumb(0, 1'000'000, 200), (ScrollThumb{true, 0, 24}));
    EXPECT_EQ(scrollThumb(999'800, 1'000'000, 200), (ScrollThumb{true, 176, 24}));
    EXPECT_EQ(scrollThumb(0, 1'000'000, 10), (ScrollThumb{true, 0, 10})) << "nor longer than its track";
}

}  // namespace
}  // namespace vellomar
