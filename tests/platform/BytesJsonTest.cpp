#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "platform/BytesJson.h"

namespace vellomar {
namespace {

constexpr std::string_view kLastCharacter = "\xF4\x8F\xBF\xBF";  // U+10FFFF

// What a text between quotes reads as; "refused" for one that is no JSON.
std::string readText(std::string_view insideQuotes) {
    const auto value = parseJson(fmt::format("\"{}\"", insideQuotes));
    return value ? value->get<std::string>() : "refused";
}

std::string writtenText(const std::string& bytes) {
    const auto text = jsonText(Json(bytes));
    return text.substr(1, text.size() - 2);
}

TEST(BytesJson, EachStrayByteTravelsAsALoneSurrogate) {
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
        SCOPED_TRACE(byte);
        const std::string bytes(1, static_cast<char>(byte));
        EXPECT_EQ(writtenText(bytes), fmt::format("\\udc{:02x}", byte));
        EXPECT_EQ(readText(fmt::format("\\udc{:02x}", byte)), bytes);
        EXPECT_EQ(readText(fmt::format("\\uDC{:02X}", byte)), bytes);
        EXPECT_EQ(readText(fmt::format("a\\udc{:02x}b", byte)), "a" + bytes + "b");
    }
}

TEST(BytesJson, LowSurrogatesOutsideTheRangeOfBytesAreRefused) {
    for (const char* text :
         {"\\udc7f", "\\udc00", "\\udd00", "\\udfff", "\\ud800", "\\udbff", "\\ud800x", "\\ud800\\ud800", "\\ud83d\\n"})
        EXPECT_EQ(readText(text), "refused") << text;
}

TEST(BytesJson, EveryTextComesBackToTheByte) {
    const std::vector<std::string> texts = {
        "",
        "plain",
        "quote \" backslash \\ slash / newline \n tab \t bell \a",
        std::string("nul\0nul", 7),
        "Été — 日本 📷",
        "br\xFC"
        "cke",
        "\xC3\xA9\xC3",
        "\xF0\x9F\x93",  // a character cut off
        "\xED\xB2\x80",  // a surrogate in bytes
        "\xC0\xAF",      // overlong
        std::string(kLastCharacter),
        std::string(kLastCharacter) + "M",
        std::string(kLastCharacter) + "\xC2\x80",
        std::string(kLastCharacter) + std::string(kLastCharacter),
        std::string(kLastCharacter) + "\x80",
        "\x80"
        "M",
        "\\udc80",  // letters, not an escape
        "\\\\udc80",
        "\xEF\xBF\xBE\xEF\xBF\xBF",  // other noncharacters
    };
    for (const auto& text : texts) {
        SCOPED_TRACE(text);
        const auto value = parseJson(jsonText(Json(text)));
        ASSERT_TRUE(value.has_value());
        EXPECT_EQ(value->get<std::string>(), text);
    }
}

TEST(BytesJson, EveryPairOfBytesComesBack) {
    for (unsigned first = 0x7F; first <= 0xFF; ++first)
        for (unsigned second = 0x20; second <= 0xFF; ++second) {
            const std::string text{static_cast<char>(first), static_cast<char>(second)};
            const auto value = parseJson(jsonText(Json(text)));
            ASSERT_TRUE(value.has_value()) << first << " " << second;
            ASSERT_EQ(value->get<std::string>(), text) << first << " " << second;
        }
}

TEST(BytesJson, TheLastCharacterIsOneLikeOthers) {
    EXPECT_EQ(writtenText(std::string(kLastCharacter)), kLastCharacter);
    EXPECT_EQ(writtenText(std::string(kLastCharacter) + "M"), std::string(kLastCharacter) + "M");
    EXPECT_EQ(readText(kLastCharacter), kLastCharacter);
    EXPECT_EQ(readText(std::string(kLastCharacter) + "M"), std::string(kLastCharacter) + "M");
    EXPECT_EQ(readText("\\udbff\\udfff"), kLastCharacter);
    EXPECT_EQ(readText("\\uDBFF\\uDFFFM"), std::string(kLastCharacter) + "M");
    EXPECT_EQ(readText("\\udbff\\udfff\\u0080"), std::string(kLastCharacter) + "\xC2\x80");
}

TEST(BytesJson, SurrogatePairsAreOneCharacter) {
    EXPECT_EQ(readText("\\ud83d\\udcf7"), "📷");  // whose low half alone would be byte 0xF7
    EXPECT_EQ(readText("\\uD83D\\uDCF7"), "📷");
    EXPECT_EQ(readText("\\ud83d\\udcf7\\udcf7"), "📷\xF7");
    EXPECT_EQ(readText("\\udcf7\\ud83d\\udcf7"), "\xF7📷");
}

TEST(BytesJson, AnEscapedBackslashEndsAnEscape) {
    EXPECT_EQ(readText(R"(\\udc80)"), R"(\udc80)");
    EXPECT_EQ(readText(R"(\\\udc80)"), "\\\x80");
    EXPECT_EQ(readText(R"(\\\\udc80)"), R"(\\udc80)");
}

TEST(BytesJson, ASlashIsReadInBothForms) {
    EXPECT_EQ(readText(R"(\/a/b)"), "/a/b");
    EXPECT_EQ(writtenText("/a/b"), "/a/b");
}

TEST(BytesJson, KeysHoldAnyBytesToo) {
    const Json value = {{"br\xFC"
                         "cke",
                         1},
                        {"a", {{"\xFF", nullptr}}}};
    EXPECT_EQ(jsonText(value), R"({"a":{"\udcff":null},"br\udcfccke":1})");
    EXPECT_EQ(parseJson(jsonText(value)), value);
}

TEST(BytesJson, WritesKeysInOrderAndIndentsAsAsked) {
    const Json value = {{"b", {1, 2.5, true}}, {"a", "x"}};
    EXPECT_EQ(jsonText(value), R"({"a":"x","b":[1,2.5,true]})");
    EXPECT_EQ(jsonText(value, 2), "{\n  \"a\": \"x\",\n  \"b\": [\n    1,\n    2.5,\n    true\n  ]\n}");
}

TEST(BytesJson, RefusesWhatIsNoJson) {
    for (const char* text : {"",         " ",         "{",         "}",           "[1,",
                             "{\"a\":}", "{\"a\" 1}", "nul",       "'a'",         "\"a",
                             "1 2",      "\"\\x\"",   "\"\\u12\"", "\"\\u12G4\"", "\"\\u+123\"",
                             "\"\x01\"", "\\udc80",   "{a:1}",     "\xEF\xBB",    "\xF4\x8F\xBF\xBF",
                             "[1]]",     "1e999"}) {
        SCOPED_TRACE(text);
        const auto value = parseJson(text);
        ASSERT_FALSE(value.has_value());
        EXPECT_EQ(value.error().domain, "JSON");
    }
}

TEST(BytesJson, RefusesATextThatIsCutAnywhere) {
    const auto text = jsonText({{"path",
                                 "br\xFC"
                                 "cke 📷 \xF4\x8F\xBF\xBF"},
                                {"list", {1, "\\", nullptr}}});
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_FALSE(parseJson(text.substr(0, length)).has_value()) << length;
    EXPECT_TRUE(parseJson(text).has_value());
}

TEST(BytesJson, RefusesBytesOfATextThatAreNotUtf8) {
    EXPECT_EQ(readText("\xFC"), "refused");
    EXPECT_EQ(readText("\xC3"), "refused");
    EXPECT_EQ(readText("\xED\xB2\x80"), "refused");
}

TEST(BytesJson, RefusesEndlessNestingRatherThanRunOutOfStack) {
    constexpr std::size_t kDeep = 1'000'000;
    const auto nested = [](std::size_t depth, const std::string& inside) {
        return std::string(depth, '[') + inside + std::string(depth, ']');
    };
    const auto keepAll = [](const JsonPlace&, const Json&) { return true; };
    EXPECT_TRUE(parseJson(nested(100, "\"\\udc80\"")).has_value());
    EXPECT_TRUE(parseJson("\"" + nested(kDeep, "") + "\"").has_value());  // brackets in a text are no levels
    EXPECT_TRUE(parseJson(R"(["\"[[[[", "\\"])").has_value());
    EXPECT_FALSE(parseJson(nested(kDeep, "\"\\udc80\"")).has_value());
    EXPECT_FALSE(parseJson(nested(kDeep, "1")).has_value());
    EXPECT_FALSE(parseJson(std::string(kDeep, '[')).has_value());
    EXPECT_FALSE(parseJson(nested(kDeep, "{}"), keepAll).has_value());
    std::string objects;
    for (std::size_t i = 0; i < kDeep; ++i)
        objects += "{\"a\":";
    EXPECT_FALSE(parseJson(objects, keepAll).has_value());
}

TEST(BytesJson, GarbageIsRefusedAndNothingWorse) {
    std::uint32_t state = 12'345;
    const auto next = [&state] { return state = state * 1'664'525 + 1'013'904'223; };
    constexpr std::string_view kAlphabet = "{}[]\",:\\udcf80DBFM1e-. \xF4\x8F\xBF\xC2\x80";
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (auto length = (next() >> 16U) % 40; length > 0; --length)
            text += kAlphabet[(next() >> 16U) % kAlphabet.size()];
        const auto value = parseJson(text);
        if (!value) continue;
        EXPECT_EQ(parseJson(jsonText(*value)), *value) << text;
    }
}

TEST(BytesJson, ShowsEachObjectWithItsPlace) {
    struct Seen {
        int depth;
        std::string key;
        std::string object;
        bool operator==(const Seen&) const = default;
    };
    std::vector<Seen> seen;
    const auto value = parseJson(R"({"a":[{"x":1},{"y":{"entries":{}}}],"b":{"z":"\udcff"}})",
                                 [&](const JsonPlace& place, const Json& object) {
                                     seen.push_back({place.depth, place.topLevelKey, jsonText(object)});
                                     return true;
                                 });
    ASSERT_TRUE(value.has_value());
    EXPECT_EQ(jsonText(*value), R"({"a":[{"x":1},{"y":{"entries":{}}}],"b":{"z":"\udcff"}})");
    const std::vector<Seen> expected = {
        {2, "a", R"({"x":1})"},        {4, "a", "{}"},
        {3, "a", R"({"entries":{}})"}, {2, "a", R"({"y":{"entries":{}}})"},
        {1, "b", R"({"z":"\udcff"})"}, {0, "b", R"({"a":[{"x":1},{"y":{"entries":{}}}],"b":{"z":"\udcff"}})"},
    };
    ASSERT_EQ(seen.size(), expected.size());
    for (std::size_t i = 0; i < seen.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(seen[i].depth, expected[i].depth);
        EXPECT_EQ(seen[i].key, expected[i].key);
        EXPECT_EQ(seen[i].object, expected[i].object);
    }
}

TEST(BytesJson, WhatIsNotKeptLeavesAnEmptyListBehind) {
    std::string text = "[0";
    constexpr int kObjects = 10'000;
    for (int i = 0; i < kObjects; ++i)
        text += R"(,{"path":"/a\udcff"})";
    text += "]";
    int taken = 0;
    const auto value = parseJson(text, [&](const JsonPlace&, const Json& object) {
        if (object.at("path") == "/a\xFF") ++taken;
        return false;
    });
    EXPECT_EQ(taken, kObjects);
    ASSERT_TRUE(value.has_value());
    EXPECT_EQ(jsonText(*value), "[0]");
}

}  // namespace
}  // namespace vellomar
