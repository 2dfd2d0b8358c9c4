#include <string>

#include <gtest/gtest.h>
#include <unicode/uloc.h>

#include "platform/Text.h"

namespace vellomar {
namespace {

// The language of the process until the end of the scope.
class ScopedLanguage {
public:
    explicit ScopedLanguage(const char* locale) : before_(uloc_getDefault()) { set(locale); }
    ~ScopedLanguage() { set(before_.c_str()); }
    ScopedLanguage(const ScopedLanguage&) = delete;
    ScopedLanguage& operator=(const ScopedLanguage&) = delete;

private:
    static void set(const char* locale) {
        UErrorCode status = U_ZERO_ERROR;
        uloc_setDefault(locale, &status);
        EXPECT_TRUE(U_SUCCESS(status)) << locale;
    }

    std::string before_;
};

constexpr std::string_view kComposedCafe = "caf\xC3\xA9";     // é as one character
constexpr std::string_view kDecomposedCafe = "cafe\xCC\x81";  // e and a combining acute

TEST(Text, KnowsUtf8) {
    for (std::string_view text : {"", "abc", "Été", "📷", "\xEF\xBB\xBF<", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(isUtf8(text)) << text;
    EXPECT_TRUE(isUtf8(std::string_view("a\0b", 3)));
    for (std::string_view text :
         {"\xFF", "abc\xC3", "\x80 abc", "a\xE9z", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80"})
        EXPECT_FALSE(isUtf8(text)) << text;
}

TEST(Text, MeasuresTheFirstCharacter) {
    struct Case {
        std::string_view text;
        std::size_t length;
    };
    constexpr Case kCases[] = {
        {"a", 1},
        {"\xC3\xA9", 2},          // é
        {"\xE2\x80\x94", 3},      // em dash
        {"\xF0\x9F\x93\xB7", 4},  // camera
        {"\xF4\x8F\xBF\xBF", 4},  // U+10FFFF
        {"\xF4\x90\x80\x80", 0},  // one beyond
        {"\x80", 0},              // a continuation without a beginning
        {"\xC3", 0},              // cut off
        {"\xC3z", 0},             // no continuation
        {"\xC0\xAF", 0},          // overlong slash
        {"\xED\xA0\x80", 0},      // surrogate
        {"\xFF", 0},
    };
    for (const auto& [text, length] : kCases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(utf8CharacterLength(text), length);
    }
}

TEST(Text, CountsStrayBytesAsCharacters) {
    EXPECT_EQ(characterCount(""), 0U);
    EXPECT_EQ(characterCount("abc"), 3U);
    EXPECT_EQ(characterCount("Été"), 3U);
    EXPECT_EQ(characterCount("📷\xFF\xC3z"), 4U);
}

TEST(Text, LowersEveryScript) {
    struct Case {
        std::string_view text;
        std::string_view lowered;
    };
    constexpr Case kCases[] = {
        {"", ""},
        {"IMG_0001.JPG", "img_0001.jpg"},
        {"@[`{", "@[`{"},  // neighbours of the ASCII letters
        {"ÉTÉ", "été"},
        {"ОТПУСК", "отпуск"},
        {"ΟΔΟΣ", "οδος"},      // the sigma of a word's end
        {"İ", "i\xCC\x87"},    // one letter becomes two characters
        {"Straße", "straße"},  // no folding: that is another matter
    };
    for (const auto& [text, lowered] : kCases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(lowercased(text), lowered);
    }
}

TEST(Text, LoweringKeepsBytesThatAreNotUtf8) {
    EXPECT_EQ(lowercased("A\xC9"), "a\xC9");
    EXPECT_EQ(lowercased("\xC9T\xC9"), "\xC9t\xC9");
    EXPECT_EQ(lowercased("É\xFFÉ\x80"), "é\xFFé\x80");
}

TEST(Text, LoweringIsOfNoLanguage) {
    const ScopedLanguage turkish("tr_TR");
    EXPECT_EQ(lowercased("DCIM"), "dcim");
    EXPECT_EQ(lowercased("DCIMÉ"), "dcimé");
}

TEST(Text, TrimsTheWhiteSpaceOfEveryScriptAtBothEnds) {
    EXPECT_EQ(trimmed(" \t\r\n a b \n"), "a b");
    EXPECT_EQ(trimmed("\u00A0\u2003\u3000\u2028\u0085名\u1680"), "名");
    EXPECT_EQ(trimmed("a"), "a");
    EXPECT_EQ(trimmed(" \xA0 "), "\xA0") << "a stray byte is no white space";
    for (const auto* nothing : {"", " ", "\n\n", "\u2029"})
        EXPECT_EQ(trimmed(nothing), "");
}

TEST(Text, SearchIgnoresCase) {
    EXPECT_TRUE(containsIgnoringCase("Big Island HAWAII trip", "hawaii"));
    EXPECT_TRUE(containsIgnoringCase("hawaii", "HAWAII"));
    EXPECT_TRUE(containsIgnoringCase("UN ÉTÉ À PARIS", "été à"));
    EXPECT_TRUE(containsIgnoringCase("Отпуск 2019", "ОТПУСК"));
    EXPECT_TRUE(containsIgnoringCase("STRASSE", "straße"));
    EXPECT_FALSE(containsIgnoringCase("Hawai", "hawaii"));
    EXPECT_FALSE(containsIgnoringCase("", "a"));
}

TEST(Text, SearchTakesComposedAndDecomposedAccentsAsOne) {
    EXPECT_TRUE(containsIgnoringCase(kComposedCafe, kDecomposedCafe));
    EXPECT_TRUE(containsIgnoringCase(kDecomposedCafe, kComposedCafe));
    EXPECT_TRUE(containsIgnoringCase("LE CAFE\xCC\x81 VERT", kComposedCafe));
}

TEST(Text, AnAccentedLetterIsAnotherLetter) {
    EXPECT_FALSE(containsIgnoringCase(kComposedCafe, "cafe"));
    EXPECT_FALSE(containsIgnoringCase(kDecomposedCafe, "cafe"));
    EXPECT_FALSE(containsIgnoringCase("cafe", kComposedCafe));
}

TEST(Text, AnEmptyNeedleIsFoundNowhere) {
    EXPECT_FALSE(containsIgnoringCase("anything", ""));
    EXPECT_FALSE(containsIgnoringCase("", ""));
}

TEST(Text, SearchComparesStrayBytesAsTheyAre) {
    EXPECT_TRUE(containsIgnoringCase("R\xF6me", "r\xF6"));
    EXPECT_FALSE(containsIgnoringCase("R\xF6me", "r\xD6"));
    EXPECT_FALSE(containsIgnoringCase("R\xF6me", "röme"));
    EXPECT_TRUE(
        containsIgnoringCase("\xFF"
                             "CAF\xC3\x89\xFF",
                             kComposedCafe));
}

TEST(Text, SearchKnowsTheTurkishLetters) {
    {
        const ScopedLanguage english("en_US");
        EXPECT_TRUE(containsIgnoringCase("IZMIR", "izmir"));
        EXPECT_FALSE(containsIgnoringCase("IZMIR", "ızmır"));
    }
    for (const char* language : {"tr_TR", "az_AZ"}) {
        SCOPED_TRACE(language);
        const ScopedLanguage withDotlessI(language);
        EXPECT_TRUE(containsIgnoringCase("IZMIR", "ızmır"));
        EXPECT_FALSE(containsIgnoringCase("IZMIR", "izmir"));
        EXPECT_TRUE(containsIgnoringCase("İSTANBUL", "istanbul"));
        EXPECT_TRUE(containsIgnoringCase("I\xCC\x87STANBUL", "istanbul"));
        EXPECT_TRUE(containsIgnoringCase("Ankara", "ANKARA"));
    }
}

}  // namespace
}  // namespace vellomar
