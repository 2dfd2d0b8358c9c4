#include <gtest/gtest.h>

#include "engine/model/PlanRow.h"

namespace vellomar {
namespace {

TEST(PlanRow, EachRowHasAnIdentityOfItsOwnThatCopiesKeep) {
    const PlanRow first;
    const PlanRow second;
    const PlanRow copy = first;
    EXPECT_FALSE(first.id == second.id);
    EXPECT_EQ(copy.id, first.id);
}

}  // namespace
}  // namespace vellomar
