// A whole run, once for every call that it makes to the disk, each time with that call failing or with the process
// ending there: nothing is ever lost, nothing short stands under a final name, and a second run finishes the work.
#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "engine/RunFixture.h"
#include "platform/Path.h"
#include "support/FaultyFileSystem.h"

namespace vellomar {
namespace {

using testing::EngineHarness;
using testing::FaultyFileSystem;
using testing::TemporaryFolder;

constexpr std::size_t kNoFault = 0;

// Names whose dates are strong, so that a move takes them; two of them meet at one destination, and one has a sidecar.
const std::map<std::string, std::string>& library() {
    static const std::map<std::string, std::string> files = {
        {"20230814_143021.dng", "first photo, raw"},      {"20230814_143021.xmp", "first photo, sidecar"},
        {"Italy/20230815_101010.jpg", "second photo"},    {"Rome/20230816_101010.jpg", "third photo"},
        {"Rome/again/20230816_101010.jpg", "3rd, again"}, {"2023-08-17 12.00.00.jpg", "fourth photo"},
    };
    return files;
}

struct Job {
    const char* name;
    Options options;
};

std::vector<Job> jobs() {
    Options copy;
    copy.dryRun = false;
    copy.useExifToolForImages = copy.useExifToolForVideo = false;
    copy.includeOther = true;
    Options networkCopy = copy;
    networkCopy.storageIsNetwork = true;
    networkCopy.conflictPolicy = ConflictPolicy::overwrite;
    Options move = copy;
    move.moveOriginalsWhenReliable = true;
    Options networkMove = move;
    networkMove.storageIsNetwork = true;
    return {{"copy", copy}, {"network copy", networkCopy}, {"move", move}, {"network move", networkMove}};
}

// A fresh library in a folder of its own, and what one run makes of it.
class Attempt {
public:
    explicit Attempt(const Options& options) : options_(options) {
        for (const auto& [name, content] : library())
            folder_.write("source/" + name, content);
        folder_.makeFolder("dest");
    }

    // Runs with the given call failing; none for kNoFault. Returns the number of calls made.
    std::size_t run(std::size_t call, FaultyFileSystem::Fault fault, int errnoValue) {
        FaultyFileSystem faulty(disk_, call, fault, errnoValue);
        // A decoder that loads none of the real one's libraries: there are thousands of runs.
        EmbeddedMetadataReaders readers(faulty, UNRULY_DECODER);
        EngineHarness harness({.fileSystem = &faulty, .metadataReaders = &readers});
        harness.run({folder_ / "source"}, folder_ / "dest", options_);
        log_ = harness.observer.allLogLines;
        return faulty.calls();
    }

    // The same in a process of its own that ends at that call.
    void runAndDie(std::size_t call) {
        const auto child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            run(call, FaultyFileSystem::Fault::killProcess, 0);
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
    }

    [[nodiscard]] std::multiset<std::string> contentsBelow(const std::string& name) const {
        std::multiset<std::string> contents;
        for (const auto& file : filesBelow(folder_ / name))
            contents.insert(testing::contentOf((folder_ / name) + "/" + file));
        return contents;
    }

    // Every photo is whole where it was or whole where it belongs.
    void expectNothingLost() const {
        const auto before = contentsBelow("source");
        const auto after = contentsBelow("dest");
        for (const auto& [name, content] : library())
            EXPECT_TRUE(before.contains(content) || after.contains(content)) << name;
    }

    // What bears a final name is one of the photos, or a record of the run.
    void expectNothingShort() const {
        for (const auto& file : filesBelow(folder_ / "dest")) {
            const auto name = lastPathComponent(file);
            if (name.ends_with(".__partial") || name.starts_with('.') || name.starts_with("_vellomar_undo_")) continue;
            const auto content = testing::contentOf((folder_ / "dest") + "/" + file);
            EXPECT_TRUE(std::ranges::any_of(library(), [&](const auto& photo) { return photo.second == content; }))
                << file << " holds " << content;
        }
    }

    // A planned file that did not arrive has a line that says why.
    void expectFailuresTold() const {
        const auto arrived = contentsBelow("dest");
        const bool allWerePlanned = std::ranges::any_of(log_, [](const auto& line) { return line.ends_with(" of 6"); });
        if (!allWerePlanned) return;
        for (const auto& photo : library())
            EXPECT_TRUE(arrived.contains(photo.second) || tellsOfFailure(photo.first)) << photo.first;
    }

    void expectFinished() const {
        const auto arrived = contentsBelow("dest");
        for (const auto& [name, content] : library())
            EXPECT_TRUE(arrived.contains(content)) << name;
    }

private:
    [[nodiscard]] bool tellsOfFailure(const std::string& name) const {
        return std::ranges::any_of(log_, [&](const auto& line) {
            return (line.starts_with("✗") || line.starts_with("⚠")) && mentions(line, name);
        });
    }

    // A line names a file, or the folder that could not be made for it.
    static bool mentions(const std::string& line, const std::string& name) {
        return line.find(lastPathComponent(name)) != std::string::npos || line.starts_with("✗ Cannot create dest dir");
    }

    TemporaryFolder folder_{TemporaryFolder::Where::inMemory};
    LinuxFileSystem disk_;
    Options options_;
    std::vector<std::string> log_;
};

std::size_t callsOfAFaultlessRun(const Options& options) {
    Attempt attempt(options);
    const auto calls = attempt.run(kNoFault, FaultyFileSystem::Fault::fail, 0);
    attempt.expectFinished();
    return calls;
}

TEST(RunFaults, AFailingCallCostsAtMostItsFile) {
    for (const auto& [name, options] : jobs()) {
        const auto calls = callsOfAFaultlessRun(options);
        ASSERT_GT(calls, 100);
        for (const int errnoValue : {EIO, ENOSPC}) {
            for (std::size_t call = 1; call <= calls; ++call) {
                SCOPED_TRACE(std::string(name) + ", call " + std::to_string(call) + ", errno " +
                             std::to_string(errnoValue));
                Attempt attempt(options);
                attempt.run(call, FaultyFileSystem::Fault::fail, errnoValue);
                attempt.expectNothingLost();
                attempt.expectNothingShort();
                attempt.expectFailuresTold();
                attempt.run(kNoFault, FaultyFileSystem::Fault::fail, 0);
                attempt.expectNothingLost();
                attempt.expectFinished();
            }
        }
    }
}

TEST(RunFaults, AProcessThatEndsAnywhereLosesNothing) {
    for (const auto& [name, options] : jobs()) {
        const auto calls = callsOfAFaultlessRun(options);
        for (std::size_t call = 1; call <= calls; ++call) {
            SCOPED_TRACE(std::string(name) + ", call " + std::to_string(call));
            Attempt attempt(options);
            attempt.runAndDie(call);
            attempt.expectNothingLost();
            attempt.expectNothingShort();
            attempt.run(kNoFault, FaultyFileSystem::Fault::fail, 0);
            attempt.expectNothingLost();
            attempt.expectFinished();
        }
    }
}

}  // namespace
}  // namespace vellomar
