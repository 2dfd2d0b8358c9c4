#include <filesystem>

#include <gmock/gmock.h>

#include "driver/DriverProcess.h"

namespace vellomar {
namespace {

using testing::EngineDriver;

class LookDriver : public EngineDriver {
protected:
    Json check(const Json& paths, const Json& options, const std::string& dest) {
        return driver.result({{"op", "runIntegrityCheck"}, {"paths", paths}, {"dest", dest}, {"options", options}});
    }
};

TEST_F(LookDriver, ChecksFilesWithTheSizesThatTheyHave) {
    const Json paths = {folder.write("a.jpg", "12345"), folder.write("empty.jpg", ""), folder / "missing.jpg"};
    const Json expected = {{"unreadableFiles", {folder / "missing.jpg"}},
                           {"noDateSignal", Json::array()},
                           {"suspectedCorrupt", {"empty.jpg"}},
                           {"readOnlySource", false},
                           {"insufficientSpace", false},
                           {"totalScanned", 3}};
    EXPECT_EQ(check(paths, {{"moveOriginalsWhenReliable", true}}, folder.path()), expected);
}

TEST_F(LookDriver, ChecksNoFiles) {
    const auto report = check(Json::array(), Json::object(), folder / "missing");
    EXPECT_EQ(report.at("totalScanned"), 0);
    EXPECT_EQ(report.at("insufficientSpace"), false);
}

TEST_F(LookDriver, FindsThatMoreIsNeededThanThereIs) {
    constexpr auto kMoreThanAnyDisk = std::uintmax_t{1} << 40;
    const testing::TemporaryFolder inMemory(testing::TemporaryFolder::Where::inMemory);
    Json paths = Json::array();
    for (const auto* name : {"1.mov", "2.mov", "3.mov", "4.mov"}) {
        const auto path = inMemory.write(name, "");
        std::filesystem::resize_file(path, kMoreThanAnyDisk * 3);  // all of it a hole
        paths.push_back(path);
    }
    EXPECT_EQ(check(paths, Json::object(), folder.path()).at("insufficientSpace"), true);
    EXPECT_EQ(check(paths, Json::object(), "/proc").at("insufficientSpace"), false);
}

TEST_F(LookDriver, TellsTheRoomOfAFolder) {
    const auto room = driver.result({{"op", "availableCapacity"}, {"dest", folder.path()}});
    ASSERT_TRUE(room.is_number_integer());
    EXPECT_GT(room, 0);
    EXPECT_EQ(driver.result({{"op", "availableCapacity"}, {"dest", folder / "missing"}}), nullptr);
    EXPECT_EQ(driver.result({{"op", "availableCapacity"}, {"dest", "/proc"}}), nullptr);
}

TEST_F(LookDriver, Estimates) {
    folder.write("one/a.jpg", "12345");
    folder.write("one/.hidden.jpg", "12345");
    folder.write("two/caf\xE9.mov", "123");
    folder.write("two/Thumbs.db", "123");
    const Json sources = {folder / "one", folder / "two", folder / "missing"};
    const auto found = driver.result({{"op", "estimateRun"}, {"sources", sources}, {"options", {{"dryRun", false}}}});
    EXPECT_EQ(found.size(), 3);
    EXPECT_EQ(found.at("fileCount"), 2);
    EXPECT_EQ(found.at("totalBytes"), 8);
    EXPECT_DOUBLE_EQ(found.at("estimatedSeconds").get<double>(), 2 * 0.167 + 8.0 / 120'000'000);
    const Json nothing = {{"fileCount", 0}, {"totalBytes", 0}, {"estimatedSeconds", 0.0}};
    EXPECT_EQ(driver.result({{"op", "estimateRun"}, {"sources", Json::array()}}), nothing);
}

TEST_F(LookDriver, SurvivesBadArguments) {
    for (const char* request : {
             R"({"op":"runIntegrityCheck"})",
             R"({"op":"runIntegrityCheck","paths":"/a","dest":"/d"})",
             R"({"op":"runIntegrityCheck","paths":[1],"dest":"/d"})",
             R"({"op":"runIntegrityCheck","paths":["/a"]})",
             R"({"op":"runIntegrityCheck","paths":["/a"],"dest":"/d","options":{"dryrun":true}})",
             R"({"op":"availableCapacity"})",
             R"({"op":"availableCapacity","dest":[]})",
             R"({"op":"estimateRun"})",
             R"({"op":"estimateRun","sources":"/a"})",
             R"({"op":"estimateRun","sources":["/a"],"options":[]})",
         }) {
        SCOPED_TRACE(request);
        EXPECT_NE(errorTo(request), "");
    }
}

}  // namespace
}  // namespace vellomar
