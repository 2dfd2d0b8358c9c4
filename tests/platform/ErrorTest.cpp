#include <cerrno>
#include <clocale>

#include <gtest/gtest.h>

#include "platform/Error.h"

namespace vellomar {
namespace {

TEST(Error, CarriesTheKernelsNumberAndWords) {
    EXPECT_EQ(systemError(ENOENT), (Error{"POSIX", ENOENT, "No such file or directory"}));
    EXPECT_EQ(systemError(ENOSPC), (Error{"POSIX", ENOSPC, "No space left on device"}));
    EXPECT_EQ(systemError(99'999), (Error{"POSIX", 99'999, "Unknown error"}));
}

TEST(Error, IsEnglishInEveryLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(systemError(EACCES).description, "Permission denied");
    std::setlocale(LC_ALL, before.c_str());
}

TEST(Error, AFailureIsNoValue) {
    const Expected<int> failed = systemFailure(EIO);
    ASSERT_FALSE(failed.has_value());
    EXPECT_EQ(failed.error(), systemError(EIO));
}

TEST(Error, IsKnownByDomainAndNumberTogether) {
    EXPECT_TRUE(isSystemError(systemError(EEXIST), EEXIST));
    EXPECT_FALSE(isSystemError(systemError(EEXIST), ENOENT));
    EXPECT_FALSE(isSystemError({"Vellomar", EEXIST, ""}, EEXIST));
}

}  // namespace
}  // namespace vellomar
