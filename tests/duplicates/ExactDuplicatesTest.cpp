#include <map>

#include <gmock/gmock.h>

#include "duplicates/ExactDuplicates.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Dates = std::map<std::string_view, std::int64_t>;

std::vector<ExactDuplicates> found(const HashGroups& groups, const Dates& secondsByPath) {
    return findExactDuplicates(groups, [&](std::string_view path) -> std::optional<Instant> {
        const auto date = secondsByPath.find(path);
        if (date == secondsByPath.end()) return std::nullopt;
        return instantFromUnixSeconds(date->second);
    });
}

std::vector<std::string_view> pathsOf(const std::vector<std::string_view>& group, const Dates& dates) {
    const HashGroups groups = {{"aa", group}};
    return found(groups, dates).at(0).paths;
}

TEST(ExactDuplicates, TakeTwoPathsOrMore) {
    EXPECT_THAT(found({}, {}), IsEmpty());
    EXPECT_THAT(found({{"aa", {"/d/a"}}, {"bb", {"/d/b"}}}, {}), IsEmpty());
    const HashGroups groups = {{"aa", {"/d/a"}}, {"bb", {"/d/b", "/d/c"}}};
    const auto duplicates = found(groups, {});
    ASSERT_EQ(duplicates.size(), 1);
    EXPECT_EQ(duplicates[0].sha256, "bb");
    EXPECT_EQ(duplicates[0].canonical(), "/d/b");
    EXPECT_THAT(std::vector(duplicates[0].duplicates().begin(), duplicates[0].duplicates().end()), ElementsAre("/d/c"));
}

TEST(ExactDuplicates, StandByTheirHash) {
    HashGroups groups;
    std::vector<std::string> hashes;
    for (const char c : {'7', 'f', '0', 'a', '9', 'b', '3'})
        groups[std::string(64, c)] = {"/d/1", "/d/2"};
    for (const auto& group : found(groups, {}))
        hashes.emplace_back(group.sha256.substr(0, 1));
    EXPECT_THAT(hashes, ElementsAre("0", "3", "7", "9", "a", "b", "f"));
}

TEST(ExactDuplicates, TheEarliestIsTheCanonicalOne) {
    EXPECT_THAT(pathsOf({"/d/a", "/d/b", "/d/c"}, {{"/d/a", 30}, {"/d/b", 10}, {"/d/c", 20}}),
                ElementsAre("/d/b", "/d/c", "/d/a"));
}

TEST(ExactDuplicates, OfOneDateTheFirstPathIsTheCanonicalOneWhateverTheOrder) {
    const Dates dates = {{"/d/a", 5}, {"/d/b", 5}, {"/d/\xC3\xA4", 5}};
    EXPECT_THAT(pathsOf({"/d/a", "/d/b", "/d/\xC3\xA4"}, dates), ElementsAre("/d/a", "/d/b", "/d/\xC3\xA4"));
    EXPECT_THAT(pathsOf({"/d/\xC3\xA4", "/d/b", "/d/a"}, dates), ElementsAre("/d/a", "/d/b", "/d/\xC3\xA4"));
}

// A byte above 127 is not less than a letter.
TEST(ExactDuplicates, PathsCompareByTheirBytes) {
    EXPECT_THAT(pathsOf({"/d/\xFF", "/d/z", "/d/Z"}, {}), ElementsAre("/d/Z", "/d/z", "/d/\xFF"));
}

TEST(ExactDuplicates, APathWithoutADateIsCanonicalHoweverOldTheOthersAre) {
    EXPECT_THAT(pathsOf({"/d/a", "/d/b", "/d/c"}, {{"/d/a", -62'135'596'800}, {"/d/b", 0}}),
                ElementsAre("/d/c", "/d/a", "/d/b"));
}

TEST(ExactDuplicates, APathThatStandsTwiceIsADuplicateOfItself) {
    EXPECT_THAT(pathsOf({"/d/a", "/d/a"}, {}), ElementsAre("/d/a", "/d/a"));
}

}  // namespace
}  // namespace vellomar
