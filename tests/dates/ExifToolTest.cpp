#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <map>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dates/ExifTool.h"
#include "platform/LinuxFileSystem.h"
#include "support/FakeExifTool.h"
#include "support/ForwardingFileSystem.h"
#include "support/ProcessCensus.h"
#include "support/TemporaryFolder.h"

namespace vellomar::ExifUtils {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::childrenOfThisProcess;
using testing::comesTrue;
using ::testing::Contains;
using testing::contentOf;
using ::testing::ElementsAre;
using testing::exists;
using testing::FakeExifTool;
using testing::LeavesNothingBehind;
using ::testing::Pair;
using testing::TemporaryFolder;

using Arguments = std::vector<std::string>;

// For programs that are to end by themselves.
constexpr auto kAmpleToolTime = 60s;

// Writes down how often each path was looked at.
class LookCounter final : public testing::ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<FileStatus> statusFollowingLinks(const std::string& path) override {
        ++looks[path];
        return real().statusFollowingLinks(path);
    }

    std::map<std::string, int> looks;
};

// Calls with longer and longer limits, until the program gets as far as to make the file "ready" within its limit. It
// is given up each time, long before its own minute is over.
void expectGivenUp(const FakeExifTool& fake) {
    for (auto limit = 300ms; limit < 20s; limit *= 2) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_FALSE(fake.tool().runExifToolJSON({}, limit).has_value());
        const auto taken = std::chrono::steady_clock::now() - start;
        EXPECT_GE(taken, limit);
        EXPECT_LT(taken, limit + 20s);
        if (exists(fake / "ready")) return;
    }
    FAIL() << "the program never began";
}

class LocateExifTool : public ::testing::Test {
protected:
    [[nodiscard]] std::string program(const std::string& name) const {
        auto path = folder.write(name, "#!/bin/sh\n");
        fs::permissions(path, fs::perms{0755});
        return path;
    }

    [[nodiscard]] std::optional<ExifToolCommand> located(const ExifToolPlaces& places) {
        return ExifTool(fileSystem, places).locateExifTool();
    }

    LinuxFileSystem fileSystem;
    TemporaryFolder folder;
};

TEST_F(LocateExifTool, LooksInThreePlacesUnlessToldOtherwise) {
    EXPECT_THAT(ExifToolPlaces().executables,
                ElementsAre("/opt/homebrew/bin/exiftool", "/usr/local/bin/exiftool", "/usr/bin/exiftool"));
    EXPECT_EQ(ExifToolPlaces().resourceFolder, "");
}

TEST_F(LocateExifTool, ACopyInTheResourcesRunsThroughPerl) {
    const auto resources = folder.makeFolder("resources");
    const auto script = folder.write("resources/exiftool");
    EXPECT_EQ(located({resources, {program("installed")}}),
              (ExifToolCommand{"/usr/bin/perl", {"-I", resources, script}}));
}

TEST_F(LocateExifTool, ResourcesWithoutACopyAreNoMatter) {
    const auto installed = program("installed");
    const auto holdsFolder = folder.makeFolder("holdsFolder");
    folder.makeFolder("holdsFolder/exiftool");
    for (const auto& resources : {std::string(), folder.makeFolder("empty"), folder / "missing", holdsFolder}) {
        SCOPED_TRACE(resources);
        EXPECT_EQ(located({resources, {installed}}), (ExifToolCommand{installed, {}}));
    }
}

TEST_F(LocateExifTool, TheFirstExecutableFileCounts) {
    const auto first = program("first");
    const auto second = program("second");
    const auto plain = folder.write("plain");
    fs::permissions(plain, fs::perms{0644});
    const auto link = folder / "link";
    fs::create_symlink(second, link);
    const auto missing = folder / "missing";
    const auto directory = folder.makeFolder("directory");
    EXPECT_EQ(located({"", {first, second, missing}}), (ExifToolCommand{first, {}}));
    EXPECT_EQ(located({"", {missing, second, first}}), (ExifToolCommand{second, {}}));
    EXPECT_EQ(located({"", {missing, plain, first}}), (ExifToolCommand{first, {}}));
    EXPECT_EQ(located({"", {directory, link, first}}), (ExifToolCommand{link, {}}));
    EXPECT_EQ(located({"", {missing, plain, directory}}), std::nullopt);
    EXPECT_EQ(located({"", {}}), std::nullopt);
}

TEST_F(LocateExifTool, LooksOnce) {
    LookCounter counter(fileSystem);
    const auto later = folder / "later";
    const ExifTool tool(counter, {folder.path(), {later}});
    EXPECT_THAT(counter.looks, ::testing::IsEmpty()) << "before it is asked";
    EXPECT_EQ(tool.locateExifTool(), std::nullopt);
    static_cast<void>(program("later"));
    EXPECT_EQ(tool.locateExifTool(), std::nullopt);
    EXPECT_FALSE(tool.runExifTool({}));
    EXPECT_FALSE(tool.runExifToolJSON({}, kAmpleToolTime).has_value());
    EXPECT_THAT(counter.looks, ElementsAre(Pair(folder / "exiftool", 1), Pair(later, 1)));
}

TEST_F(LocateExifTool, WhatWasFoundIsKept) {
    LookCounter counter(fileSystem);
    const auto installed = program("installed");
    const ExifTool tool(counter, {"", {installed}});
    const auto& found = tool.locateExifTool();
    fs::remove(installed);
    EXPECT_EQ(&tool.locateExifTool(), &found);
    EXPECT_EQ(found, (ExifToolCommand{installed, {}}));
    EXPECT_THAT(counter.looks, ElementsAre(Pair(installed, 1)));
}

TEST_F(LocateExifTool, LooksOnceThoughManyThreadsAskAtOnce) {
    LookCounter counter(fileSystem);
    const auto installed = program("installed");
    const ExifTool tool(counter, {"", {installed}});
    std::atomic<int> found = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 8; ++i)
            threads.emplace_back([&] { found += tool.locateExifTool() == ExifToolCommand{installed, {}} ? 1 : 0; });
    }
    EXPECT_EQ(found, 8);
    EXPECT_THAT(counter.looks, ElementsAre(Pair(installed, 1)));
}

TEST(RunExifTool, IsTrueExactlyForStatusZero) {
    const LeavesNothingBehind census;
    for (const auto& [script, isSuccess] : std::map<std::string, bool>{
             {"exit 0", true}, {"exit 1", false}, {"exit 2", false}, {"exit 255", false}, {"kill -KILL $$", false}}) {
        SCOPED_TRACE(script);
        EXPECT_EQ(FakeExifTool(script).tool().runExifTool({}), isSuccess);
    }
}

TEST(RunExifTool, PassesItsArgumentsBehindItsOwn) {
    const FakeExifTool fake("exit 0");
    const Arguments odd = {"-overwrite_original", "", "/a b'\"c\nd\\e$f|", "-/dash", "M\xC3\xBC\xFF"};
    EXPECT_TRUE(fake.tool().runExifTool(odd));
    EXPECT_TRUE(fake.tool().runExifTool({}));
    EXPECT_THAT(fake.calls(),
                ElementsAre(ElementsAre("-api", "LargeFileSupport=1", odd[0], odd[1], odd[2], odd[3], odd[4]),
                            ElementsAre("-api", "LargeFileSupport=1")));
}

TEST(RunExifTool, NeitherOutputNorInputHoldsItUp) {
    const LeavesNothingBehind census;
    EXPECT_TRUE(FakeExifTool("cat; printf '%3000000s' x; printf '%3000000s' x >&2").tool().runExifTool({}));
}

TEST(RunExifTool, WhatCannotBeStartedIsAFailure) {
    const LeavesNothingBehind census;
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto noProgram = folder.write("noProgram", "\x01\x02");
    fs::permissions(noProgram, fs::perms{0755});
    for (const auto& path : {folder / "missing", noProgram}) {
        SCOPED_TRACE(path);
        const ExifTool tool(fileSystem, {"", {path}});
        EXPECT_FALSE(tool.runExifTool({}));
        EXPECT_FALSE(tool.runExifToolJSON({}, kAmpleToolTime).has_value());
    }
}

TEST(RunExifToolJSON, PassesItsArgumentsBehindItsOwn) {
    const auto fake = FakeExifTool("printf '[]'");
    const Arguments odd = {"-Make", "", "/a b'\"c\nd\\e$f|", "-/dash", "M\xC3\xBC\xFF"};
    EXPECT_TRUE(fake.tool().runExifToolJSON(odd, kAmpleToolTime).has_value());
    EXPECT_THAT(fake.calls(), ElementsAre(ElementsAre("-api", "LargeFileSupport=1", "-json", odd[0], odd[1], odd[2],
                                                      odd[3], odd[4])));
}

TEST(RunExifToolJSON, ACopyInTheResourcesFindsItsLibraryThere) {
    const LeavesNothingBehind census;
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.write("exiftool", "printf '[{\"arguments\":\"%s\",\"library\":\"%s\"}]', join(' ', @ARGV), $INC[0];");
    const Arguments arguments = {"-Make"};
    EXPECT_THAT(ExifTool(fileSystem, {folder.path(), {}}).runExifToolJSON(arguments, kAmpleToolTime),
                ::testing::Optional(ElementsAre(
                    Json{{"arguments", "-api LargeFileSupport=1 -json -Make"}, {"library", folder.path()}})));
}

TEST(RunExifToolJSON, GivesTheObjectsInTheirOrder) {
    const LeavesNothingBehind census;
    const auto fake = FakeExifTool::printing(" [ {\"b\":1}, {},\n{\"a\":{\"c\":[true,null]}} ]\n");
    EXPECT_THAT(fake.tool().runExifToolJSON({}, kAmpleToolTime),
                ::testing::Optional(
                    ElementsAre(Json::parse(R"({"b":1})"), Json::object(), Json::parse(R"({"a":{"c":[true,null]}})"))));
    EXPECT_THAT(FakeExifTool::printing("[]").tool().runExifToolJSON({}, kAmpleToolTime),
                ::testing::Optional(ElementsAre()));
}

TEST(RunExifToolJSON, AnythingButAListOfObjectsIsNoAnswer) {
    const LeavesNothingBehind census;
    for (const auto* output : {"", " ", "[", "[{}", "[{}] x", "{}", "{\"a\":[{}]}", "null", "1", "\"text\"", "[1]",
                               "[{},null]", "[[]]", "[[{}]]", "Warning: nothing", "[{\"a\":\"\xFF\"}]"}) {
        SCOPED_TRACE(output);
        EXPECT_FALSE(FakeExifTool::printing(output).tool().runExifToolJSON({}, kAmpleToolTime).has_value());
    }
}

TEST(RunExifToolJSON, HowTheProgramEndsDoesNotMatter) {
    const LeavesNothingBehind census;
    for (const auto* end : {"exit 1", "exit 2", "kill -SEGV $$", "kill -KILL $$"}) {
        SCOPED_TRACE(end);
        const auto fake = FakeExifTool(std::string("printf '[{\"a\":1}]'; ulimit -c 0; ") + end);
        EXPECT_THAT(fake.tool().runExifToolJSON({}, kAmpleToolTime), ::testing::Optional(ElementsAre(Json{{"a", 1}})));
    }
    EXPECT_FALSE(FakeExifTool("kill -KILL $$").tool().runExifToolJSON({}, kAmpleToolTime).has_value());
}

TEST(RunExifToolJSON, WaitsAsLongAsItTakesWithoutALimit) {
    const LeavesNothingBehind census;
    const FakeExifTool fake("sleep 0.2; printf '[{}]'");
    EXPECT_TRUE(fake.tool().runExifToolJSON({}, 0s).has_value());
    EXPECT_TRUE(fake.tool().runExifToolJSON({}, -1s).has_value());
}

TEST(RunExifToolJSON, AProgramThatHangsIsEndedAtTheLimit) {
    const LeavesNothingBehind census;
    expectGivenUp(FakeExifTool("printf '[{}]'; : >\"$here/ready\"; sleep 60"));
}

TEST(RunExifToolJSON, TheLimitEndsWhatTheProgramStartedToo) {
    const LeavesNothingBehind census;
    const FakeExifTool fake("sleep 60 & echo $! >\"$here/started\"; mv \"$here/started\" \"$here/ready\"; wait");
    expectGivenUp(fake);
    const auto grandchild = std::stoi(contentOf(fake / "ready"));
    EXPECT_TRUE(comesTrue([&] { return testing::stateOfProcess(grandchild).value_or('Z') == 'Z'; }));
}

TEST(RunExifToolJSON, OutputThatFitsThePipeComesWhole) {
    const LeavesNothingBehind census;
    EXPECT_TRUE(FakeExifTool("printf '%1000000s' '[{}]'; printf '%1000000s' x >&2")
                    .tool()
                    .runExifToolJSON({}, kAmpleToolTime)
                    .has_value());
}

TEST(RunExifToolJSON, OutputThatDoesNotFitStallsUntilTheLimit) {
    const LeavesNothingBehind census;
    expectGivenUp(FakeExifTool(": >\"$here/ready\"; printf '%3000000s' '[{}]'"));
}

TEST(RunExifToolJSON, SoDoComplaintsThatDoNotFit) {
    const LeavesNothingBehind census;
    expectGivenUp(FakeExifTool(": >\"$here/ready\"; printf '%3000000s' x >&2; printf '[{}]'"));
}

TEST(RunExifToolJSON, WhatDoesNotTerminateIsInterrupted) {
    const LeavesNothingBehind census;
    const FakeExifTool fake(
        "trap '' TERM; trap ': >\"$here/interrupted\"; exit' INT; : >\"$here/ready\"\n"
        "while :; do sleep 0.05; done");
    expectGivenUp(fake);
    EXPECT_TRUE(comesTrue([&] { return exists(fake / "interrupted"); }));
}

TEST(RunExifToolJSON, WhatTerminatesIsNotInterrupted) {
    const LeavesNothingBehind census;
    const FakeExifTool fake(
        "trap 'exit' TERM; trap ': >\"$here/interrupted\"; exit' INT; : >\"$here/ready\"\n"
        "while :; do sleep 0.05; done");
    expectGivenUp(fake);
    EXPECT_TRUE(comesTrue([] { return childrenOfThisProcess().running.empty(); }));
    EXPECT_FALSE(exists(fake / "interrupted"));
}

TEST(RunExifToolJSON, WhatHeedsNothingIsLeftToItselfAndNoZombieInTheEnd) {
    const LeavesNothingBehind census;
    const FakeExifTool fake(
        "trap '' TERM INT; echo $$ >\"$here/started\"; mv \"$here/started\" \"$here/ready\"\n"
        "exec sleep 60");
    expectGivenUp(fake);
    const auto left = std::stoi(contentOf(fake / "ready"));
    EXPECT_THAT(childrenOfThisProcess().running, Contains(left));
    ASSERT_EQ(::kill(left, SIGKILL), 0);
    EXPECT_TRUE(comesTrue([&] { return !testing::stateOfProcess(left).has_value(); }));
}

TEST(RunExifToolJSON, AHelperThatKeepsTheOutputOpenHoldsNobodyUp) {
    const LeavesNothingBehind census;
    const FakeExifTool fake("sleep 60 & echo $! >\"$here/helper\"; printf '[{}]'");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(fake.tool().runExifToolJSON({}, kAmpleToolTime).has_value());
    EXPECT_LT(std::chrono::steady_clock::now() - start, 30s);
    EXPECT_EQ(::kill(std::stoi(contentOf(fake / "helper")), SIGKILL), 0) << "it was still there";
}

TEST(RunExifToolJSON, ManyThreadsMayAskAtOnce) {
    const LeavesNothingBehind census;
    const auto fake = FakeExifTool::printing("[{}]");
    std::atomic<int> answers = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([&] {
                for (int call = 0; call < 10; ++call)
                    answers += fake.tool().runExifToolJSON({}, kAmpleToolTime).has_value() ? 1 : 0;
            });
    }
    EXPECT_EQ(answers, 40);
}

}  // namespace
}  // namespace vellomar::ExifUtils
