#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dates/ParsedDecision.h"

namespace vellomar {

// For failure messages.
void PrintTo(const ParsedDecision::Candidate& candidate, std::ostream* stream) {
    *stream << candidate.source << '(' << candidate.score << ")=" << candidate.date;
}

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Candidate = ParsedDecision::Candidate;

constexpr std::string_view kDecision =
    R"(kind=EXIF DateTimeOriginal+confirmed; strong=Y; date=2023-08-14 14:30:21; first='Vacation'; )"
    R"(tail='Vacation\Day 1'; dest='/Volumes/Library/2023/08 - August/Vacation/a.jpg')";
constexpr std::string_view kLog =
    "chosen=EXIF DateTimeOriginal+confirmed(100); candidates=[EXIF DateTimeOriginal+confirmed(100)=2023-08-14 "
    "14:30:21; Filename(70)=2023-08-14 14:30:21; FS ModificationDate(20)=2023-09-01 10:02:11; FS "
    "CreationDate(15)=2023-09-01 10:02:11]";

TEST(ParsedDecision, ADecisionHasDateAndDestination) {
    ParsedDecision expected;
    expected.chosenDate = "2023-08-14 14:30:21";
    expected.dest = "/Volumes/Library/2023/08 - August/Vacation/a.jpg";
    EXPECT_EQ(parseDecision(kDecision), expected);
    EXPECT_EQ(expected.chosenSource, "—");
    EXPECT_FALSE(expected.isStrong);
}

TEST(ParsedDecision, ALogHasChoiceAndCandidates) {
    const auto parsed = parseDecision(kLog);
    EXPECT_EQ(parsed.chosenSource, "EXIF DateTimeOriginal+confirmed");
    EXPECT_TRUE(parsed.isStrong);
    EXPECT_EQ(parsed.chosenDate, "—");
    EXPECT_EQ(parsed.dest, "");
    EXPECT_THAT(parsed.candidates, ElementsAre(Candidate{"EXIF DateTimeOriginal+confirmed", "2023-08-14 14:30:21", 100},
                                               Candidate{"Filename", "2023-08-14 14:30:21", 70},
                                               Candidate{"FS ModificationDate", "2023-09-01 10:02:11", 20},
                                               Candidate{"FS CreationDate", "2023-09-01 10:02:11", 15}));
}

TEST(ParsedDecision, BothTextsInOneGiveEverything) {
    for (const auto& text :
         {std::string(kDecision) + "; " + std::string(kLog), std::string(kLog) + "; " + std::string(kDecision)}) {
        SCOPED_TRACE(text);
        const auto parsed = parseDecision(text);
        EXPECT_EQ(parsed.chosenDate, "2023-08-14 14:30:21");
        EXPECT_EQ(parsed.chosenSource, "EXIF DateTimeOriginal+confirmed");
        EXPECT_TRUE(parsed.isStrong);
        EXPECT_EQ(parsed.dest, "/Volumes/Library/2023/08 - August/Vacation/a.jpg");
        EXPECT_EQ(parsed.candidates.size(), 4U);
    }
}

TEST(ParsedDecision, TheChoiceIsStrongByItsScore) {
    struct Case {
        std::string_view choice;
        std::string_view source;
        bool isStrong;
    };
    constexpr Case kCases[] = {
        {"Filename(60)", "Filename", true},
        {"Filename(59)", "Filename", false},
        {"Filename(+60)", "Filename", true},
        {"Filename(-60)", "Filename", false},
        {"Filename(060)", "Filename", true},
        {"Filename( 60)", "Filename", false},
        {"Filename(60 )", "Filename", false},
        {"Filename(60.0)", "Filename", false},
        {"Filename(0x60)", "Filename", false},
        {"Filename(+-60)", "Filename", false},
        {"Filename(++60)", "Filename", false},
        {"Filename(+)", "Filename", false},
        {"Filename()", "Filename", false},
        {"Filename(99999999999999999999)", "Filename", false},
        {"(95)", "", true},
        {"EXIF (old) (95)", "EXIF (old) ", true},
        {"EXIF(95) by hand", "EXIF", true},
        {"EXIF(95))", "EXIF", false},
        {"EXIF=; date=x(95)", "EXIF=; date=x", true},
        {"\xFF\xC3(95)", "\xFF\xC3", true},
    };
    for (const auto& [choice, source, isStrong] : kCases) {
        SCOPED_TRACE(choice);
        const auto parsed = parseDecision("chosen=" + std::string(choice) + "; candidates=[]");
        EXPECT_EQ(parsed.chosenSource, source);
        EXPECT_EQ(parsed.isStrong, isStrong);
        EXPECT_THAT(parsed.candidates, IsEmpty());
    }
}

TEST(ParsedDecision, AChoiceThatLacksAMarkIsNone) {
    for (std::string_view text :
         {"chosen=EXIF(95)", "chosen=EXIF(95), candidates=[]", "EXIF(95); candidates=[]",
          "; candidates=[]; chosen=EXIF(95)", "Chosen=EXIF(95); candidates=[]", "chosen=EXIF; candidates=[]",
          "chosen=EXIF(95; candidates=[]", "chosen=EXIF 95); candidates=[]", "chosen=EXIF)95(; candidates=[]",
          "chosen=; candidates=[]"}) {
        SCOPED_TRACE(text);
        const auto parsed = parseDecision(text);
        EXPECT_EQ(parsed.chosenSource, "—");
        EXPECT_FALSE(parsed.isStrong);
    }
}

TEST(ParsedDecision, TheChoiceEndsBeforeTheFirstCandidatesBehindIt) {
    const auto parsed = parseDecision("; candidates=[; chosen=A(70); candidates=B(10); candidates=[]");
    EXPECT_EQ(parsed.chosenSource, "A");
    EXPECT_TRUE(parsed.isStrong);
}

TEST(ParsedDecision, TheDateRunsToASemicolonOrTheEnd) {
    struct Case {
        std::string_view text;
        std::string_view date;
    };
    constexpr Case kCases[] = {
        {"date=2023-08-14 14:30:21; first=''", "2023-08-14 14:30:21"},
        {"date=2023-08-14 14:30:21", "2023-08-14 14:30:21"},
        {"date=2023;date=2024", "2023"},
        {"update=2023;", "2023"},
        {"date=", ""},
        {"date=;", ""},
        {"date=\xFF", "\xFF"},
        {"DATE=2023", "—"},
        {"date 2023", "—"},
        {"", "—"},
    };
    for (const auto& [text, date] : kCases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(parseDecision(text).chosenDate, date);
    }
}

TEST(ParsedDecision, TheDestinationRunsToAQuoteOrTheEnd) {
    struct Case {
        std::string_view text;
        std::string_view dest;
    };
    constexpr Case kCases[] = {
        {"tail=''; dest='/a/b.jpg'", "/a/b.jpg"},
        {"dest='/a/b.jpg", "/a/b.jpg"},
        {"dest='/a/Anna's/b.jpg'", "/a/Anna"},
        {"dest='/a; b/c.jpg'", "/a; b/c.jpg"},
        {"first='dest='; dest='/a'", "; dest="},
        {"dest=''", ""},
        {"dest='", ""},
        {"dest='/a/\xFF.jpg'", "/a/\xFF.jpg"},
        {"dest=/a/b.jpg", ""},
        {"", ""},
    };
    for (const auto& [text, dest] : kCases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(parseDecision(text).dest, dest);
    }
}

TEST(ParsedDecision, CandidatesAreSortedByScoreAndElseKeepTheirOrder) {
    EXPECT_THAT(parseDecision("candidates=[a(5)=1; b(20)=2; c(20)=3; d(-1)=4; e(100)=5; f(x)=6]").candidates,
                ElementsAre(Candidate{"e", "5", 100}, Candidate{"b", "2", 20}, Candidate{"c", "3", 20},
                            Candidate{"a", "1", 5}, Candidate{"f", "6", 0}, Candidate{"d", "4", -1}));
}

TEST(ParsedDecision, ManyEqualCandidatesKeepTheirOrder) {
    constexpr int kCandidates = 1'000;
    std::string text = "candidates=[";
    for (int i = 0; i < kCandidates; ++i)
        text += "a(" + std::to_string(i % 2) + ")=" + std::to_string(i) + "; ";
    const auto candidates = parseDecision(text + "]").candidates;
    ASSERT_EQ(candidates.size(), std::size_t{kCandidates});
    for (int i = 0; i < kCandidates / 2; ++i) {
        const auto at = static_cast<std::size_t>(i);
        ASSERT_EQ(candidates[at], (Candidate{"a", std::to_string(2 * i + 1), 1}));
        ASSERT_EQ(candidates[at + kCandidates / 2], (Candidate{"a", std::to_string(2 * i), 0}));
    }
}

TEST(ParsedDecision, ACandidateIsReadByTheLastOfItsMarks) {
    struct Case {
        std::string_view entry;
        Candidate candidate;
    };
    const Case cases[] = {
        {"EXIF(95)=2023", {"EXIF", "2023", 95}},
        {"EXIF(+95)=2023", {"EXIF", "2023", 95}},
        {"EXIF (old)(95)=2023", {"EXIF (old)", "2023", 95}},
        {"a=b(95)=2023", {"a=b", "2023", 95}},
        {"a=b(95)", {"a=b", "b(95)", 95}},
        {"(95)=2023", {"", "2023", 95}},
        {"EXIF(95)=", {"EXIF", "", 95}},
        {"EXIF()=2023", {"EXIF", "2023", 0}},
        {"EXIF(95 )=2023", {"EXIF", "2023", 0}},
        {"EXIF(99999999999999999999)=2023", {"EXIF", "2023", 0}},
        {"EXIF(95)=2023;", {"EXIF", "2023;", 95}},
        {"EXIF(95)=2023 (x)", {"EXIF(95)=2023 ", "2023 (x)", 0}},
        {"\xFF(95)=\xFE", {"\xFF", "\xFE", 95}},
    };
    for (const auto& [entry, candidate] : cases) {
        SCOPED_TRACE(entry);
        EXPECT_THAT(parseDecision("candidates=[" + std::string(entry) + "]").candidates, ElementsAre(candidate));
    }
}

TEST(ParsedDecision, ACandidateThatLacksAMarkIsLeftOut) {
    for (std::string_view entry : {"", ";", "EXIF", "EXIF(95)", "EXIF(95=2023", "EXIF95)=2023", "EXIF)95(=2023", "="}) {
        SCOPED_TRACE(entry);
        EXPECT_THAT(parseDecision("candidates=[" + std::string(entry) + "]").candidates, IsEmpty());
        EXPECT_THAT(parseDecision("candidates=[a(1)=2; " + std::string(entry) + "; b(3)=4]").candidates,
                    ElementsAre(Candidate{"b", "4", 3}, Candidate{"a", "2", 1}));
    }
}

TEST(ParsedDecision, TheListOfCandidatesEndsAtItsFirstBracket) {
    EXPECT_THAT(parseDecision("candidates=[a(1)=2]; b(3)=4]").candidates, ElementsAre(Candidate{"a", "2", 1}));
    EXPECT_THAT(parseDecision("candidates=[a(1)=2; b[0](3)=4]").candidates, ElementsAre(Candidate{"a", "2", 1}));
    for (std::string_view text : {"candidates=[a(1)=2", "candidates=a(1)=2]", "candidates=[", "candidates=", "]"})
        EXPECT_THAT(parseDecision(text).candidates, IsEmpty()) << text;
}

TEST(ParsedDecision, ATextWithoutMarksTellsNothing) {
    for (std::string_view text : {"", " ", "nonsense", "\xFF\xC3\x80", "()[]=';"})
        EXPECT_EQ(parseDecision(text), ParsedDecision()) << text;
    EXPECT_EQ(parseDecision(std::string_view("\0\0", 2)), ParsedDecision());
}

TEST(ParsedDecision, ComesThroughTextsOfAnyBytes) {
    constexpr std::string_view kPieces[] = {
        "chosen=", "; candidates=", "candidates=[", "date=", "dest='", "'", ";", "; ", "(", ")", "]", "=", "7", "\xFF"};
    std::mt19937 random(1);
    std::uniform_int_distribution<std::size_t> piece(0, std::size(kPieces) - 1);
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (int i = 0; i < 16; ++i)
            text += kPieces[piece(random)];
        SCOPED_TRACE(text);
        const auto parsed = parseDecision(text);
        EXPECT_TRUE(parsed.chosenDate == "—" || text.find("date=" + parsed.chosenDate) != std::string::npos);
        EXPECT_TRUE(parsed.chosenSource == "—" || text.find("chosen=" + parsed.chosenSource) != std::string::npos);
        EXPECT_NE(text.find(parsed.dest), std::string::npos);
    }
}

TEST(ParsedDecision, ComesThroughLongTexts) {
    std::string text = "candidates=[";
    for (int i = 0; i < 100'000; ++i)
        text += "a(1)=2; ";
    EXPECT_EQ(parseDecision(text + "]").candidates.size(), 100'000U);
    EXPECT_EQ(parseDecision("dest='" + std::string(8'000'000, '(')).dest.size(), 8'000'000U);
}

}  // namespace
}  // namespace vellomar
