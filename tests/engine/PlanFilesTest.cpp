#include <gtest/gtest.h>

#include "engine/PlanFiles.h"
#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using testing::contentOf;
using testing::exists;
using testing::TemporaryFolder;

PlanRow row(std::string source, std::string destination, std::string decision) {
    PlanRow result;
    result.source = std::move(source);
    result.destination = std::move(destination);
    result.action = "COPY->" + result.destination;
    result.resolvedDate = "2023-08-09 13:01:05";
    result.decision = std::move(decision);
    result.cameraModel = "not written";
    return result;
}

const std::vector<PlanRow> kRows = {row("/s/a.jpg", "/d/a.jpg", "EXIF;score=90"), row("/s/b, or \"c\".jpg",
                                                                                      "/d/br\xFC"
                                                                                      "cke.jpg",
                                                                                      "x,y")};

constexpr const char* kPreview =
    "source,destination,action,resolved_date,decision\n"
    "/s/a.jpg,/d/a.jpg,COPY->/d/a.jpg,2023-08-09 13:01:05,EXIF;score=90\n"
    "/s/b, or \"c\".jpg,/d/br\xFC"
    "cke.jpg,COPY->/d/br\xFC"
    "cke.jpg,2023-08-09 13:01:05,x,y\n";

constexpr const char* kExported =
    "source,destination,action,resolved_date,decision\n"
    "\"/s/a.jpg\",\"/d/a.jpg\",\"COPY->/d/a.jpg\",\"2023-08-09 13:01:05\",\"EXIF;score=90\"\n"
    "\"/s/b, or \"c\".jpg\",\"/d/br\xFC"
    "cke.jpg\",\"COPY->/d/br\xFC"
    "cke.jpg\",\"2023-08-09 13:01:05\",\"x,y\"\n";

TEST(PlanFiles, HaveTheirNames) {
    EXPECT_STREQ(kPreviewPlanName, "_preview_plan.csv");
    EXPECT_STREQ(kExportedPlanName, "filesort_plan.csv");
}

TEST(PlanFiles, ThePreviewNeitherQuotesNorEscapes) {
    EXPECT_EQ(previewPlanText(kRows), kPreview);
}

TEST(PlanFiles, TheExportQuotesEveryFieldAndEscapesNothing) {
    EXPECT_EQ(exportedPlanText(kRows), kExported);
}

TEST(PlanFiles, APlanWithoutRowsHasItsHeader) {
    EXPECT_EQ(previewPlanText({}), "source,destination,action,resolved_date,decision\n");
    EXPECT_EQ(exportedPlanText({}), "source,destination,action,resolved_date,decision\n");
}

TEST(PlanFiles, AreWrittenOverAnOlderPlan) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    writePreviewPlan(fileSystem, kRows, folder.write("_preview_plan.csv", "older"));
    writeExportedPlan(fileSystem, kRows, folder / "plan.csv");
    EXPECT_EQ(contentOf(folder / "_preview_plan.csv"), kPreview);
    EXPECT_EQ(contentOf(folder / "plan.csv"), kExported);
}

TEST(PlanFiles, AFailureIsSilent) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    writePreviewPlan(fileSystem, kRows, folder / "missing/_preview_plan.csv");
    writeExportedPlan(fileSystem, kRows, folder / "missing/plan.csv");
    EXPECT_FALSE(exists(folder / "missing"));
}

}  // namespace
}  // namespace vellomar
