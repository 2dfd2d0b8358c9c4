// The order of the calls that a power cut would punish.
#include <algorithm>

#include <gmock/gmock.h>

#include "engine/RunFixture.h"
#include "support/CallRecorder.h"
#include "support/ScopedTimeZone.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsSupersetOf;

class DurabilityTest : public RunTest {
protected:
    // The recorded calls of a run that name any of `paths`.
    [[nodiscard]] std::vector<std::string> callsOf(const Options& options, const std::vector<std::string>& paths) {
        testing::EngineHarness recorded({.fileSystem = &recorder, .clock = &clock});
        recorded.run({source}, dest, options);
        std::vector<std::string> calls;
        for (const auto& call : recorder.calls())
            if (std::ranges::any_of(paths, [&](const auto& path) {
                    return call.ends_with(" " + path) || call.find(" " + path + " ") != std::string::npos;
                }))
                calls.push_back(call);
        return calls;
    }

    testing::ScopedTimeZone zone{"UTC"};
    testing::CallRecorder recorder{fileSystem};
    std::string name = "20230814_143021.jpg";
    std::string parent = dest + "/2023/08 - August";
    std::string destination = parent + "/2023-08-14_143021_" + name;
    std::string partial = destination + ".__partial";
};

TEST_F(DurabilityTest, ACopyIsOnTheDiskBeforeItsNameAndReadBackFromIt) {
    const auto path = photo(name, "photo");
    EXPECT_THAT(
        callsOf(copyOptions(), {path, partial, destination}),
        ElementsAre("remove " + partial, "read " + path, "create " + partial, "sync " + partial, "dropCache " + partial,
                    "rename " + partial + " " + destination, "read " + destination, "read " + path));
}

TEST_F(DurabilityTest, ANetworkCopyIsOnTheDiskBeforeItsNameToo) {
    const auto path = photo(name, "photo");
    auto options = copyOptions();
    options.storageIsNetwork = true;
    EXPECT_THAT(
        callsOf(options, {path, partial, destination}),
        ElementsAre("remove " + partial, "read " + path, "create " + partial, "sync " + partial, "dropCache " + partial,
                    "rename " + partial + " " + destination, "read " + destination, "read " + path));
}

TEST_F(DurabilityTest, AnOriginalGoesOnlyWhenTheNameOfItsCopyIsOnTheDisk) {
    const auto path = photo(name, "photo");
    EXPECT_THAT(callsOf(moveOptions(), {path, partial, destination, parent}),
                ElementsAre("remove " + partial, "read " + path, "create " + partial, "sync " + partial,
                            "dropCache " + partial, "rename " + partial + " " + destination, "syncDirectory " + parent,
                            "remove " + path, "read " + destination));
}

TEST_F(DurabilityTest, NewFoldersAreOnTheDiskToo) {
    photo(name, "photo");
    EXPECT_THAT(callsOf(copyOptions(), {dest, dest + "/2023"}),
                IsSupersetOf({"syncDirectory " + dest, "syncDirectory " + dest + "/2023"}));
}

TEST_F(DurabilityTest, AManifestReplacesNothingUntilItIsWhole) {
    photo(name, "photo");
    const auto manifest = dest + "/_vellomar_undo_2024-06-14_094107.json";
    const auto calls = callsOf(copyOptions(), {manifest});
    ASSERT_EQ(calls.size(), 1);
    const auto temporary = calls[0].substr(7, calls[0].find(' ', 7) - 7);
    const auto all = recorder.calls();
    const auto created = std::ranges::find(all, "create " + temporary);
    ASSERT_NE(created, all.end());
    EXPECT_THAT(std::vector<std::string>(created, created + 4),
                ElementsAre("create " + temporary, "sync " + temporary, "rename " + temporary + " " + manifest,
                            "syncDirectory " + dest));
}

}  // namespace
}  // namespace vellomar
