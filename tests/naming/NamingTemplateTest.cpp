#include <gtest/gtest.h>

#include "naming/NamingTemplate.h"

namespace vellomar {
namespace {

const NamePieces kPieces = {"2023", "08", "14", "August", "13", "30", "21", "stem", "Rome", "jpg"};

TEST(NamingTemplate, EachTokenStandsForItsPiece) {
    struct Case {
        std::string_view token;
        std::string_view value;
    };
    constexpr Case kCases[] = {
        {"{YYYY}", "2023"}, {"{MM}", "08"}, {"{DD}", "14"},         {"{Month}", "August"}, {"{HH}", "13"},
        {"{mm}", "30"},     {"{ss}", "21"}, {"{original}", "stem"}, {"{Event}", "Rome"},   {"{ext}", "jpg"},
    };
    for (const auto& [token, value] : kCases) {
        SCOPED_TRACE(token);
        EXPECT_EQ(renderTemplate(token, kPieces), value);
        EXPECT_EQ(renderTemplate("<" + std::string(token) + "|" + std::string(token) + ">", kPieces),
                  "<" + std::string(value) + "|" + std::string(value) + ">");
    }
}

TEST(NamingTemplate, OtherTextInBracesStays) {
    for (std::string_view text : {"{dd}", "{yyyy}", "{Mm}", "{event}", "{EXT}", "{Camera}", "{ MM }", "{", "}", "{}"})
        EXPECT_EQ(renderTemplate(text, kPieces), text);
}

TEST(NamingTemplate, AnEmptyTemplateMeansTheDefaultOne) {
    EXPECT_EQ(renderTemplate("", kPieces), "2023/08 - August/Rome/2023-08-14_133021_stem.jpg");
}

TEST(NamingTemplate, TokensThatComeInWithANameAreReplacedIfTheirTurnIsStillToCome) {
    auto pieces = kPieces;
    pieces.original = "{Event}{ext}{YYYY}{original}";
    EXPECT_EQ(renderTemplate("{original}", pieces), "Romejpg{YYYY}{original}");
    pieces.event = "{ext}{original}{Event}";
    EXPECT_EQ(renderTemplate("{Event}", pieces), "jpg{original}{Event}");
    pieces.extension = "{ext}{Event}";
    EXPECT_EQ(renderTemplate("{ext}", pieces), "{ext}{Event}");
}

TEST(NamingTemplate, TokensThatArePutTogetherByAReplacementAreReplacedInTurn) {
    auto pieces = kPieces;
    pieces.original = "Eve";
    EXPECT_EQ(renderTemplate("{{original}nt}", pieces), "Rome");
}

TEST(NamingTemplate, BytesOfAnyKindGoThrough) {
    auto pieces = kPieces;
    pieces.original = "\xff\xfe";
    EXPECT_EQ(renderTemplate("\xc3{original}", pieces), "\xc3\xff\xfe");
}

TEST(NamingTemplate, ThePreviewShowsAMadeUpFileWithNothingCleanedUp) {
    EXPECT_EQ(renderTemplatePreview(""), "2024/06 - June/Vacation/2024-06-14_143021_IMG_4821.jpg");
    EXPECT_EQ(renderTemplatePreview("{YYYY} {MM} {DD} {Month} {HH} {mm} {ss} {original} {Event} {ext}"),
              "2024 06 14 June 14 30 21 IMG_4821 Vacation jpg");
    EXPECT_EQ(renderTemplatePreview(" //{Event} / {dd}"), " //Vacation / {dd}");
    EXPECT_EQ(renderTemplatePreview("   "), "   ");
}

TEST(NamingTemplate, TheRelativePathHasTrimmedSegmentsAndNoEmptyOnes) {
    struct Case {
        std::string_view rendered;
        std::string_view path;
    };
    constexpr Case kCases[] = {
        {"a/b/c", "a/b/c"},
        {"/a//b/", "a/b"},
        {" a / \t /\tb\t", "a/b"},
        {"a b/c\td", "a b/c\td"},
        {"", ""},
        {"   ", ""},
        {"/", ""},
        {" / / ", ""},
        {"2023/08//x.", "2023/08/x."},
        {"\xff / \xfe", "\xff/\xfe"},
        {"\n/a", "\n/a"},
    };
    for (const auto& [rendered, path] : kCases) {
        SCOPED_TRACE(rendered);
        EXPECT_EQ(relativePathOfTemplate(rendered), path);
    }
}

}  // namespace
}  // namespace vellomar
