#include <gtest/gtest.h>

#include "places/Place.h"

namespace vellomar {
namespace {

TEST(Place, IsTextWithoutWhatIsEmpty) {
    struct Case {
        Place place;
        std::string text;
    };
    const std::vector<Case> cases = {
        {{"Sintra", "Lisbon", "Portugal"}, "Sintra, Lisbon, Portugal"},
        {{"Singapore", "", "Singapore"}, "Singapore, Singapore"},
        {{"Tokyo", "Tokyo", "Japan"}, "Tokyo, Tokyo, Japan"},
        {{"", "Lisbon", "Portugal"}, "Lisbon, Portugal"},
        {{"Sintra", "Lisbon", ""}, "Sintra, Lisbon"},
        {{"", "", "Portugal"}, "Portugal"},
        {{"Sintra", "", ""}, "Sintra"},
        {{"", "Lisbon", ""}, "Lisbon"},
        {{"", "", ""}, ""},
    };
    for (const auto& [place, text] : cases)
        EXPECT_EQ(placeText(place), text);
}

}  // namespace
}  // namespace vellomar
