#include <gtest/gtest.h>

#include "settings/JsonValues.h"

namespace vellomar {
namespace {

TEST(JsonValues, BytesGoThroughBase64) {
    for (const std::string& bytes : {std::string(), std::string("a"), std::string("\x00\xFF", 2), std::string("abc")})
        EXPECT_EQ(bytesFrom(jsonOfBytes(bytes)), bytes);
    EXPECT_EQ(base64Of("light"), "bGlnaHQ=");
    EXPECT_EQ(bytesFromBase64("bGlnaHQ="), "light");
}

TEST(JsonValues, NothingButBase64IsReadAsSuch) {
    for (const auto* text : {"bGlnaHQ", "bGlnaHQ==", "b GlnaHQ=", "bGln*HQ=", "=", "bGlnaHR="})
        EXPECT_EQ(bytesFromBase64(text), std::nullopt) << text;
}

TEST(JsonValues, MembersOfAnotherTypeAreNone) {
    const Json object = {{"text", "a"}, {"number", 1}, {"id", "00010203-0405-4607-8809-0A0B0CDDEEFF"}};
    EXPECT_EQ(textMember(object, "text"), "a");
    EXPECT_EQ(textMember(object, "number"), std::nullopt);
    EXPECT_EQ(textMember(object, "none"), std::nullopt);
    EXPECT_EQ(textMember(Json("text"), "text"), std::nullopt);
    EXPECT_TRUE(uuidMember(object, "id").has_value());
    EXPECT_EQ(uuidMember(object, "text"), std::nullopt);
}

}  // namespace
}  // namespace vellomar
