#include <gmock/gmock.h>

#include "ui/inspector/ParsedDecision.h"

namespace vellomar {

void PrintTo(const ParsedCandidate& candidate, std::ostream* stream) {
    *stream << candidate.source << "(" << candidate.score << ")=" << candidate.date;
}

namespace {

using ::testing::ElementsAre;

TEST(ParsedDecision, ReadsAWholeText) {
    const auto parsed = parsedDecision(
        "chosen=EXIF DateTimeOriginal+confirmed(100); candidates=[EXIF DateTimeOriginal+confirmed(100)=2023-08-14 "
        "14:30:21; "
        "Filename(70)=2023-08-14 14:30:21; FS ModificationDate(20)=2023-09-01 10:02:11]; date=2023-08-14 14:30:21; "
        "dest='/out/2023/08 - August/x.jpg'");
    EXPECT_EQ(parsed.chosenSource, "EXIF DateTimeOriginal+confirmed");
    EXPECT_TRUE(parsed.isStrong);
    EXPECT_EQ(parsed.chosenDate, "2023-08-14 14:30:21");
    EXPECT_EQ(parsed.dest, "/out/2023/08 - August/x.jpg");
    EXPECT_THAT(parsed.candidates,
                ElementsAre(ParsedCandidate{"EXIF DateTimeOriginal+confirmed", "2023-08-14 14:30:21", 100},
                            ParsedCandidate{"Filename", "2023-08-14 14:30:21", 70},
                            ParsedCandidate{"FS ModificationDate", "2023-09-01 10:02:11", 20}));
}

TEST(ParsedDecision, ARowsOwnTextGivesTheDateAndTheDestinationAlone) {
    const auto parsed = parsedDecision(
        R"(kind=Filename; strong=Y; date=2023-08-14 14:30:21; first='Trip'; tail='Trip\Day 1'; dest='/out/x.jpg')");
    EXPECT_EQ(parsed, (ParsedDecision{.chosenDate = "2023-08-14 14:30:21", .dest = "/out/x.jpg", .candidates = {}}));
}

TEST(ParsedDecision, WithoutMarkersEverythingIsAsAtFirst) {
    for (const char* const text : {"", "nothing", "chosen=A(70)", "chosen=A; candidates=", "chosen=)(; candidates="})
        EXPECT_EQ(parsedDecision(text), ParsedDecision()) << text;
    EXPECT_EQ(ParsedDecision().chosenSource, "—");
    EXPECT_EQ(ParsedDecision().chosenDate, "—");
}

TEST(ParsedDecision, SixtyIsStrong) {
    struct Case {
        const char* score;
        bool isStrong;
    };
    for (const auto& [score, isStrong] :
         {Case{"60", true}, Case{"59", false}, Case{"-60", false}, Case{"+60", true}, Case{"", false},
          Case{"60.5", false}, Case{" 60", false}, Case{"abc", false}}) {
        const auto parsed = parsedDecision("chosen=Filename(" + std::string(score) + "); candidates=[]");
        EXPECT_EQ(parsed.isStrong, isStrong) << score;
        EXPECT_EQ(parsed.chosenSource, "Filename") << score;
    }
}

TEST(ParsedDecision, ASourceMayHaveParenthesesOfItsOwn) {
    const auto parsed = parsedDecision("chosen=Name (old) (2)(75); candidates=[Name (old)(75)=2023-01-01 00:00:00]");
    EXPECT_EQ(parsed.chosenSource, "Name (old) (2)");
    EXPECT_TRUE(parsed.isStrong);
    EXPECT_THAT(parsed.candidates, ElementsAre(ParsedCandidate{"Name (old)", "2023-01-01 00:00:00", 75}));
}

TEST(ParsedDecision, CandidatesAreRankedAndEqualOnesKeepTheirOrder) {
    const auto parsed = parsedDecision("candidates=[A(10)=1; B(50)=2; C(10)=3; D(x)=4; E(-5)=5; no marker; F=6; G(7)]");
    EXPECT_THAT(parsed.candidates,
                ElementsAre(ParsedCandidate{"B", "2", 50}, ParsedCandidate{"A", "1", 10}, ParsedCandidate{"C", "3", 10},
                            ParsedCandidate{"D", "4", 0}, ParsedCandidate{"E", "5", -5}));
}

TEST(ParsedDecision, AnUnfinishedListOrTextIsReadToItsEnd) {
    EXPECT_THAT(parsedDecision("candidates=[A(10)=1; B(20)=2").candidates.size(), 2);
    EXPECT_EQ(parsedDecision("date=2023").chosenDate, "2023");
    EXPECT_EQ(parsedDecision("dest='/out/a").dest, "/out/a");
    EXPECT_EQ(parsedDecision("date=; dest=''").chosenDate, "");
}

}  // namespace
}  // namespace vellomar
