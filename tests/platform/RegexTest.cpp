#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Regex.h"

namespace vellomar {
namespace {

TEST(Regex, FindsTheFirstMatch) {
    const Regex year(R"((19|20)\d\d)");
    EXPECT_EQ(year.firstMatch("from 1999 to 2004"), "1999");
    EXPECT_EQ(year.firstMatch("no date"), std::nullopt);
    EXPECT_EQ(year.firstMatch(""), std::nullopt);
    EXPECT_TRUE(year.matches("2004"));
    EXPECT_FALSE(year.matches("200"));
}

TEST(Regex, AMatchIsAPartOfTheText) {
    const std::string text = "IMG_2004.jpg";
    const auto found = Regex(R"(\d{4})").firstMatch(text);
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->data(), text.data() + 4);
    EXPECT_EQ(Regex("x*").firstMatch("abc"), "");
}

TEST(Regex, LooksBehindAndAhead) {
    const Regex lonely(R"((?<!\d)\d{8}(?!\d))");
    EXPECT_EQ(lonely.firstMatch("a20230814b"), "20230814");
    EXPECT_EQ(lonely.firstMatch("120230814"), std::nullopt);
    EXPECT_EQ(lonely.firstMatch("202308141"), std::nullopt);
}

TEST(Regex, ADigitIsAnAsciiDigit) {
    EXPECT_FALSE(Regex(R"(\d)").matches("\xD9\xA3"));      // Arabic 3
    EXPECT_FALSE(Regex(R"(\d)").matches("\xEF\xBC\x93"));  // fullwidth 3
    EXPECT_TRUE(Regex(R"(\d)").matches("3"));
}

TEST(Regex, CaseCounts) {
    EXPECT_FALSE(Regex("IMG").matches("img"));
    EXPECT_TRUE(Regex("(?i)IMG").matches("img"));
}

TEST(Regex, SearchesTextsThatAreNotUtf8) {
    const Regex number(R"(\d+)");
    EXPECT_EQ(number.firstMatch("\xFF\xC3\xE9\x80 42 \xF6"), "42");
    EXPECT_EQ(number.firstMatch(std::string_view("a\0b7", 4)), "7");
}

TEST(Regex, APatternThatDoesNotCompileIsAFault) {
    EXPECT_THROW(Regex("(unclosed"), std::logic_error);
}

TEST(Regex, ServesManyThreadsAtOnce) {
    constexpr int kThreads = 4;
    constexpr int kSearches = 2'000;
    const Regex number(R"((?<=_)\d+(?=\.))");
    std::atomic<int> wrong = 0;
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back([&, thread] {
            for (int i = 0; i < kSearches; ++i) {
                const auto expected = std::to_string(thread * kSearches + i);
                const auto text = "IMG_" + expected + ".jpg";
                if (number.firstMatch(text) != expected) ++wrong;
            }
        });
    threads.clear();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace vellomar
