#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ui/desktop/DesktopLinkOpener.h"

namespace vellomar {
namespace {

TEST(DesktopLinkOpener, OpensTheFirstThatHasAProgram) {
    struct Case {
        std::vector<std::string> schemes;
        std::vector<std::string> opened;
    };
    const std::vector<std::string> links = {"maps://?ll=1,2", "geo:1,2", "https://example.org/?a=b"};
    const std::vector<Case> cases = {
        {{"maps", "geo", "https"}, {links[0]}}, {{"geo", "https"}, {links[1]}}, {{"https"}, {links[2]}}, {{}, {}}};
    for (const auto& example : cases) {
        std::vector<std::string> opened;
        DesktopLinkOpener opener(
            [&](const std::string& scheme) { return std::ranges::count(example.schemes, scheme) > 0; },
            [&](const std::string& uri) { opened.push_back(uri); });
        opener.openFirst(links);
        EXPECT_EQ(opened, example.opened);
    }
}

}  // namespace
}  // namespace vellomar
