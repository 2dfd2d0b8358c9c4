#include <gtest/gtest.h>

#include "duplicates/DuplicateReport.h"

namespace vellomar {
namespace {

TEST(DuplicateReport, HasItsName) {
    EXPECT_STREQ(kDuplicatesReportName, "_duplicates_report.csv");
}

TEST(DuplicateReport, HasALineForEveryDuplicate) {
    EXPECT_EQ(duplicatesReportText({{"00ff", {"/d/a.jpg", "/d/b.jpg", "/d/c.jpg"}}, {"11aa", {"/d/x", "/d/y"}}}),
              "sha256,canonical,duplicate\n"
              "\"00ff\",\"/d/a.jpg\",\"/d/b.jpg\"\n"
              "\"00ff\",\"/d/a.jpg\",\"/d/c.jpg\"\n"
              "\"11aa\",\"/d/x\",\"/d/y\"\n");
}

TEST(DuplicateReport, DoublesQuotesAndLeavesAllElseAsItIs) {
    EXPECT_EQ(duplicatesReportText({{"00ff",
                                     {"/d/\"a\".jpg",
                                      "/d/b, c\nd\r\xFF"
                                      "e\".jpg"}}}),
              "sha256,canonical,duplicate\n"
              "\"00ff\",\"/d/\"\"a\"\".jpg\",\"/d/b, c\nd\r\xFF"
              "e\"\".jpg\"\n");
}

TEST(DuplicateReport, WithoutGroupsIsItsHeader) {
    EXPECT_EQ(duplicatesReportText({}), "sha256,canonical,duplicate\n");
}

}  // namespace
}  // namespace vellomar
