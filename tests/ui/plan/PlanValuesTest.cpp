#include <gmock/gmock.h>

#include "ui/plan/PlanForTests.h"
#include "ui/plan/PlanValues.h"

namespace vellomar {
namespace {

using testing::planRow;

TEST(EventTime, ReadsTheOneFormAndNoOther) {
    const auto noon = eventTime("2023-08-14 12:00:00");
    ASSERT_TRUE(noon);
    EXPECT_EQ(eventTime("2023-08-14 12:00:01"), *noon + 1);
    EXPECT_EQ(eventTime("2023-08-15 12:00:00"), *noon + 24 * 3600);
    for (const char* const text :
         {"", "—", "2023-08-14", "2023-08-14T12:00:00", "2023-08-14 12:00:00 ", "2023-8-14 12:00:00",
          "2023-02-30 12:00:00", "2023-08-14 24:00:00", "2023-08-14 12:00:0x"})
        EXPECT_FALSE(eventTime(text)) << text;
}

TEST(BeginsEvent, AfterMoreThanFourHoursForwards) {
    constexpr std::int64_t kTime = 1'000'000;
    EXPECT_FALSE(beginsEvent(kTime, kTime + 4 * 3600));
    EXPECT_TRUE(beginsEvent(kTime, kTime + 4 * 3600 + 1));
    EXPECT_FALSE(beginsEvent(kTime, kTime - 30 * 24 * 3600)) << "backwards";
    EXPECT_FALSE(beginsEvent(std::nullopt, kTime));
    EXPECT_FALSE(beginsEvent(kTime, std::nullopt));
    EXPECT_FALSE(beginsEvent(std::nullopt, std::nullopt));
}

TEST(PlanValues, FoldersByWhichRowsAreFiltered) {
    EXPECT_EQ(folderOf(planRow("", "/out/2023/08 - August/IMG.jpg")), "08 - August");
    EXPECT_EQ(folderOf(planRow("", "out/IMG.jpg")), "out");
    EXPECT_EQ(folderOf(planRow("", "IMG.jpg")), "");
    EXPECT_EQ(folderOf(planRow("", "")), "");
}

TEST(PlanValues, OfferedFolders) {
    struct Case {
        const char* destination;
        const char* offered;
    };
    const Case cases[] = {
        {"2023/08 - August/IMG.jpg", ""},
        {"2023/08 - August/Vacation/IMG.jpg", "Vacation"},
        {"2023/IMG.jpg", ""},
        {"IMG.jpg", ""},
        {"/out/2023/Trip to Norway - 2019/IMG.jpg", "Trip to Norway - 2019"},
        {"/out/2023/Übermut – Tag/IMG.jpg", "Übermut – Tag"},
    };
    for (const auto& [destination, offered] : cases)
        EXPECT_EQ(offeredFolder(planRow("", destination)), offered) << destination;
    EXPECT_EQ(offeredFolder(planRow("", "/o/2023/ääää - 6789012/a.jpg")), "") << "characters count, not bytes";
    EXPECT_EQ(offeredFolder(planRow("", "/o/2023/1234 - 8901234/a.jpg")), "") << "fourteen";
    EXPECT_EQ(offeredFolder(planRow("", "/o/2023/1234 - 89012345/a.jpg")), "1234 - 89012345") << "fifteen";
}

TEST(PlanValues, OfferedCamerasAndYears) {
    EXPECT_EQ(offeredCamera(planRow("", "", "", "X100V")), "X100V");
    EXPECT_EQ(offeredCamera(planRow("", "", "", "—")), "");
    EXPECT_EQ(offeredCamera(planRow("", "", "", "")), "");
    EXPECT_EQ(offeredYear(planRow("", "", "2023-08-14 14:30:21")), "2023");
    EXPECT_EQ(offeredYear(planRow("", "", "2023")), "2023");
    EXPECT_EQ(offeredYear(planRow("", "", "202")), "");
    EXPECT_EQ(offeredYear(planRow("", "", "")), "");
    EXPECT_EQ(yearOf(planRow("", "", "202")), "202");
}

TEST(PlanValues, NothingIsFoundAcrossTwoFields) {
    const auto text = searchableText(planRow("/In/A.JPG", "/Out/B.jpg", "2023", "Kamera Ä"));
    EXPECT_NE(text.find("/in/a.jpg"), std::string::npos);
    EXPECT_NE(text.find("kamera ä"), std::string::npos);
    EXPECT_EQ(text.find("jpg/out"), std::string::npos);
}

}  // namespace
}  // namespace vellomar
