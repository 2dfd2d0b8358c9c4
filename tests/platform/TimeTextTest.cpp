#include <cstdlib>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/LocalTime.h"
#include "platform/TimeText.h"
#include "support/ScopedTimeZone.h"

namespace vellomar {
namespace {

// The environment's variables as they were, at the end of the scope.
class ScopedVariables {
public:
    using Values = std::vector<std::pair<std::string, std::optional<std::string>>>;

    explicit ScopedVariables(const Values& values) {
        for (const auto& [name, value] : values) {
            const char* old = std::getenv(name.c_str());
            old_.emplace_back(name, old != nullptr ? std::optional<std::string>(old) : std::nullopt);
            set(name, value);
        }
    }
    ~ScopedVariables() {
        for (const auto& [name, value] : old_)
            set(name, value);
    }
    ScopedVariables(const ScopedVariables&) = delete;
    ScopedVariables& operator=(const ScopedVariables&) = delete;

private:
    static void set(const std::string& name, const std::optional<std::string>& value) {
        static_cast<void>(value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str()));
    }

    Values old_;
};

std::string textInLocale(const char* locale) {
    const ScopedVariables variables({{"LC_ALL", std::nullopt}, {"LC_TIME", locale}, {"LANG", "fr_FR.UTF-8"}});
    return timeOfDayText(*strictLocalInstant({2024, 7, 8, 15, 4, 5}));
}

TEST(TimeText, IsWrittenAsTheUsersLanguageDoes) {
    EXPECT_EQ(textInLocale("de_DE.UTF-8"), "15:04:05");
    EXPECT_THAT(textInLocale("en_US.UTF-8"), ::testing::MatchesRegex("3:04:05.+PM"));
    EXPECT_EQ(textInLocale("da_DK"), "15.04.05");
    EXPECT_EQ(textInLocale("C"), "15:04:05");
    EXPECT_EQ(textInLocale(""), "15:04:05");
}

TEST(TimeText, IsTheWallClocksWhateverTheZone) {
    for (const char* zone : {"UTC", "Asia/Kolkata", "America/Los_Angeles"}) {
        const testing::ScopedTimeZone scoped(zone);
        EXPECT_EQ(textInLocale("de_DE"), "15:04:05") << zone;
    }
}

}  // namespace
}  // namespace vellomar
