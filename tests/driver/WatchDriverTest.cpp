#include <chrono>
#include <thread>

#include <gmock/gmock.h>

#include "driver/DriverProcess.h"

namespace vellomar {
namespace {

using ::testing::EndsWith;
using testing::EngineDriver;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class WatchDriver : public EngineDriver {
protected:
    Json watch(double seconds) {
        return driver.result({{"op", "watch"},
                              {"source", folder.makeFolder("in")},
                              {"dest", folder.makeFolder("out")},
                              {"options", {{"dryRun", true}}},
                              {"seconds", seconds}});
    }
};

TEST_F(WatchDriver, WatchesForTheTimeAsked) {
    folder.write("in/before.jpg");
    const auto result = watch(0.1);
    EXPECT_EQ(result.at("isWatching"), true);
    EXPECT_EQ(result.at("filesProcessed"), 0);
    EXPECT_EQ(result.at("runs"), 0);
    ASSERT_EQ(result.at("log").size(), 1U);
    EXPECT_THAT(result.at("log")[0].get<std::string>(), AllOf(StartsWith("["), EndsWith("] Watching: in")));
}

TEST_F(WatchDriver, ArrivalsBeginARun) {
    // Again and again, since nobody tells when the watch stands.
    const std::jthread writer([this](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            folder.write("in/IMG_20240102_030405.jpg");
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
    });
    auto result = watch(3);
    // A busy machine may take longer.
    if (result.at("runs") == 0) result = watch(60);
    EXPECT_GE(result.at("runs").get<int>(), 1);
    EXPECT_EQ(result.at("filesProcessed"), result.at("runs"));
    EXPECT_THAT(result.at("log")[0].get<std::string>(), HasSubstr("] 1 new file(s) detected — sorting…"));
}

TEST_F(WatchDriver, ATimeThatIsNoneIsRefused) {
    for (const Json& seconds : {Json(-1), Json(1e9), Json("1"), Json(nullptr)}) {
        const Json request = {{"op", "watch"}, {"source", "/a"}, {"dest", "/b"}, {"seconds", seconds}};
        EXPECT_THAT(errorTo(jsonText(request)).get<std::string>(), HasSubstr("'seconds'")) << seconds;
    }
}

}  // namespace
}  // namespace vellomar
