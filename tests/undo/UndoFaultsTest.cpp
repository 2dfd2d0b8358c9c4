// An undo, once for every call that it makes to the disk, each time with that call failing or with the process ending
// there: no content is ever lost, and a second undo finishes the work.
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>
#include <set>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/FileDigest.h"
#include "platform/LinuxFileSystem.h"
#include "support/FaultyFileSystem.h"
#include "support/SeparateVolume.h"
#include "support/TemporaryFolder.h"
#include "undo/UndoExecution.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::FaultyFileSystem;

constexpr std::size_t kNoFault = 0;

struct Setting {
    const char* name;
    bool isSourceElsewhere;  // on another volume than the destination
};
constexpr Setting kSettings[] = {{"one volume", false}, {"two volumes", true}};

// A library that a run has copied and moved to "dest", and what an undo makes of it.
class Attempt {
public:
    explicit Attempt(const Setting& setting)
        : isSourceElsewhere_(setting.isSourceElsewhere), manifest_{"2024-06-14T09:41:07", source_, dest_, {}} {
        add(UndoEntry::OpType::copy, "copied.jpg", "2023/08/copied.jpg", true);
        folder_.write("source/copied.jpg", "content of copied.jpg");
        add(UndoEntry::OpType::move, "Rome/moved.jpg", "2023/08/Rome/moved.jpg", true);
        add(UndoEntry::OpType::move, "moved, no hash.jpg", "2023/09/moved.jpg", false);
        add(UndoEntry::OpType::move, "taken.jpg", "2024/taken.jpg", true);
        folder_.write("source/taken.jpg", "stands here now");
        contents_.insert("stands here now");
    }

    // Undoes with the given call failing; none for kNoFault. Returns the number of calls made.
    std::size_t undo(std::size_t call, FaultyFileSystem::Fault fault, int errnoValue) {
        testing::SeparateVolume separate(disk_, source_);
        FileSystem& real = isSourceElsewhere_ ? static_cast<FileSystem&>(separate) : disk_;
        FaultyFileSystem faulty(real, call, fault, errnoValue);
        counters_ = executeUndo(faulty, manifest_, {.log = [](const std::string&) {}, .progress = [](double) {}});
        return faulty.calls();
    }

    // The same in a process of its own that ends at that call.
    void undoAndDie(std::size_t call) {
        const auto child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            undo(call, FaultyFileSystem::Fault::killProcess, 0);
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status));
    }

    void expectEveryEntryCounted() const {
        EXPECT_EQ(counters_.reversed + counters_.skipped + counters_.failed, manifest_.entries.size());
    }

    // What bears a name of its own is whole, and every content is borne by something.
    void expectNothingLostOrShort() const {
        std::set<std::string> found;
        for (const auto& [name, content] : files()) {
            if (name.ends_with(".__partial")) continue;
            EXPECT_TRUE(contents_.contains(content)) << name << " holds " << content;
            found.insert(content);
        }
        EXPECT_EQ(found, contents_);
    }

    // Nothing is left at the destination, and everything is back.
    void expectFinished() const {
        for (const auto& file : files())
            EXPECT_TRUE(file.first.starts_with("source/")) << file.first;
        expectNothingLostOrShort();
    }

    [[nodiscard]] bool hasPartials() const {
        return std::ranges::any_of(files(), [](const auto& file) { return file.first.ends_with(".__partial"); });
    }

    [[nodiscard]] std::size_t fileCount() const { return files().size(); }

private:
    void add(UndoEntry::OpType op, const std::string& source, const std::string& destination, bool withHash) {
        const auto content = "content of " + source;
        const auto path = folder_.write("dest/" + destination, content);
        contents_.insert(content);
        auto hash = withHash ? sha256OfFile(disk_, path) : std::nullopt;
        manifest_.appendUndoEntry({op, source_ + "/" + source, path, std::move(hash), {}});
    }

    // Content by path relative to the folder.
    [[nodiscard]] std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> found;
        for (const auto& entry : fs::recursive_directory_iterator(folder_.path()))
            if (entry.is_regular_file())
                found[entry.path().string().substr(folder_.path().size() + 1)] =
                    testing::contentOf(entry.path().string());
        return found;
    }

    testing::TemporaryFolder folder_{testing::TemporaryFolder::Where::inMemory};
    LinuxFileSystem disk_;
    std::string source_ = folder_.makeFolder("source");
    std::string dest_ = folder_.makeFolder("dest");
    bool isSourceElsewhere_;
    UndoManifest manifest_;
    std::set<std::string> contents_;
    UndoCounters counters_;
};

constexpr std::size_t kFilesWhenFinished = 5;

std::size_t callsOfAFaultlessUndo(const Setting& setting) {
    Attempt attempt(setting);
    const auto calls = attempt.undo(kNoFault, FaultyFileSystem::Fault::fail, 0);
    attempt.expectFinished();
    EXPECT_EQ(attempt.fileCount(), kFilesWhenFinished);
    return calls;
}

TEST(UndoFaults, AFailingCallCostsAtMostItsFile) {
    for (const auto& setting : kSettings) {
        const auto calls = callsOfAFaultlessUndo(setting);
        ASSERT_GT(calls, 50);
        for (const int errnoValue : {EIO, ENOSPC, ENOENT, EEXIST, EXDEV}) {
            for (std::size_t call = 1; call <= calls; ++call) {
                SCOPED_TRACE(std::string(setting.name) + ", call " + std::to_string(call) + ", errno " +
                             std::to_string(errnoValue));
                Attempt attempt(setting);
                attempt.undo(call, FaultyFileSystem::Fault::fail, errnoValue);
                attempt.expectEveryEntryCounted();
                attempt.expectNothingLostOrShort();
                attempt.undo(kNoFault, FaultyFileSystem::Fault::fail, 0);
                attempt.expectFinished();
                EXPECT_FALSE(attempt.hasPartials());
                EXPECT_EQ(attempt.fileCount(), kFilesWhenFinished);
            }
        }
    }
}

// A process that ended between the copy's name and the original's removal leaves both, and the next undo brings the
// original back beside its copy: one file more, none less.
TEST(UndoFaults, AProcessThatEndsAnywhereLosesNothing) {
    for (const auto& setting : kSettings) {
        const auto calls = callsOfAFaultlessUndo(setting);
        for (std::size_t call = 1; call <= calls; ++call) {
            SCOPED_TRACE(std::string(setting.name) + ", call " + std::to_string(call));
            Attempt attempt(setting);
            attempt.undoAndDie(call);
            attempt.expectNothingLostOrShort();
            attempt.undo(kNoFault, FaultyFileSystem::Fault::fail, 0);
            attempt.expectFinished();
            EXPECT_FALSE(attempt.hasPartials());
            EXPECT_LE(attempt.fileCount(), kFilesWhenFinished + (setting.isSourceElsewhere ? 1 : 0));
        }
    }
}

}  // namespace
}  // namespace vellomar
