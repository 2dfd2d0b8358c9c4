#include <vector>

#include <gmock/gmock.h>

#include "app/AboutText.h"
#include "places/CompiledPlaces.h"

namespace vellomar {
namespace {

using ::testing::HasSubstr;

std::string answer(const std::vector<const char*>& arguments) {
    return answerTo(arguments).value_or("none");
}

TEST(AboutText, TellsWhatIsAskedFor) {
    EXPECT_THAT(answer({"--version"}), ::testing::StartsWith("Vellomar 4."));
    EXPECT_THAT(answer({"--help"}), HasSubstr("--about"));
    EXPECT_THAT(answer({"-platform", "offscreen", "--about"}), HasSubstr("GNU General Public License"));
}

TEST(AboutText, NamesWhoseThePlacesAre) {
    EXPECT_THAT(answer({"--about"}), HasSubstr(std::string(placesAttribution())));
    EXPECT_THAT(answer({"--about"}), HasSubstr("CC BY 4.0"));
}

TEST(AboutText, OtherArgumentsAreNotItsBusiness) {
    EXPECT_EQ(answer({}), "none");
    EXPECT_EQ(answer({"-platform", "offscreen"}), "none");
}

}  // namespace
}  // namespace vellomar
