#include <cerrno>
#include <filesystem>
#include <map>
#include <set>

#include <gmock/gmock.h>

#include "engine/IntegrityCheck.h"
#include "platform/LinuxFileSystem.h"
#include "support/ForwardingFileSystem.h"
#include "support/ScopedOrdinaryUser.h"
#include "support/TemporaryFolder.h"
#include "support/VolumeOfItsOwn.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

constexpr std::size_t kPage = 4'096;

// Volumes from tables; whatever the tables do not name cannot be looked at. Files can be read but for those that are
// said to be closed. Remembers what it was asked.
class PretendVolumes final : public testing::ForwardingFileSystem {
public:
    PretendVolumes() : ForwardingFileSystem(disk_) {}

    [[nodiscard]] Expected<bool> volumeIsReadOnly(const std::string& path) override {
        return answer("volumeIsReadOnly " + path, readOnly, path);
    }
    [[nodiscard]] Expected<std::int64_t> availableBytes(const std::string& path) override {
        return answer("availableBytes " + path, free, path);
    }
    [[nodiscard]] Expected<void> checkAccess(const std::string& path, Access access) override {
        note((access == Access::read ? "read " : "other access ") + path);
        if (closed.contains(path)) return systemFailure(EACCES);
        return {};
    }

    std::map<std::string, bool> readOnly;
    std::map<std::string, std::int64_t> free;
    std::set<std::string> closed;
    std::vector<std::string> calls;
    std::string stopsAt;  // the call during which the run is cancelled
    std::stop_source stop;

private:
    void note(const std::string& call) {
        calls.push_back(call);
        if (call == stopsAt) stop.request_stop();
    }

    template <typename Value>
    Expected<Value> answer(const std::string& call, const std::map<std::string, Value>& values,
                           const std::string& path) {
        note(call);
        const auto found = values.find(path);
        if (found == values.end()) return systemFailure(EIO);
        return found->second;
    }

    LinuxFileSystem disk_;
};

Options moving() {
    Options options;
    options.moveOriginalsWhenReliable = true;
    return options;
}

class IntegrityCheck : public ::testing::Test {
protected:
    // "/src/0.jpg" and so on.
    void addFiles(std::size_t count, std::optional<std::int64_t> size = 1) {
        for (std::size_t i = 0; i < count; ++i)
            files.push_back({"/src/" + std::to_string(files.size()) + ".jpg", sourceRoot, size});
    }

    void closeFrom(std::size_t first, std::size_t count) {
        for (std::size_t i = first; i < first + count; ++i)
            volumes.closed.insert(files.at(i).path);
    }

    [[nodiscard]] IntegrityReport check(const Options& options = {}, std::int64_t bytesMeasured = 0) {
        return runIntegrityCheck(volumes, {files, bytesMeasured, dest}, options, volumes.stop.get_token());
    }

    std::shared_ptr<const std::string> sourceRoot = std::make_shared<const std::string>("/src");
    std::string dest = "/dest";
    std::vector<TaggedFile> files;
    PretendVolumes volumes;
};

TEST_F(IntegrityCheck, NoFilesMakeACleanReport) {
    EXPECT_EQ(check(moving()), IntegrityReport{});
    EXPECT_THAT(volumes.calls, ElementsAre("availableBytes /dest"));
}

TEST_F(IntegrityCheck, CountsAllFilesAndSamplesTwenty) {
    addFiles(100);
    EXPECT_EQ(check().totalScanned, 100);
    EXPECT_EQ(std::ranges::count_if(volumes.calls, [](const auto& call) { return call.starts_with("read "); }), 20);
}

TEST_F(IntegrityCheck, AReadOnlySourceMattersToAMoveAlone) {
    addFiles(1);
    for (const bool isReadOnly : {false, true}) {
        volumes.readOnly["/src/0.jpg"] = isReadOnly;
        EXPECT_EQ(check(moving()).readOnlySource, isReadOnly);
        EXPECT_FALSE(check().readOnlySource);
    }
}

TEST_F(IntegrityCheck, OnlyTheVolumeOfTheFirstFileIsLookedAt) {
    addFiles(2);
    volumes.readOnly = {{"/src/0.jpg", false}, {"/src/1.jpg", true}};
    EXPECT_FALSE(check(moving()).readOnlySource);
    volumes.readOnly = {{"/src/0.jpg", true}, {"/src/1.jpg", false}};
    EXPECT_TRUE(check(moving()).readOnlySource);
    EXPECT_THAT(volumes.calls, ::testing::Not(::testing::Contains("volumeIsReadOnly /src/1.jpg")));
}

TEST_F(IntegrityCheck, AVolumeThatCannotBeLookedAtCountsAsWritable) {
    addFiles(1);
    EXPECT_FALSE(check(moving()).readOnlySource);
    EXPECT_THAT(volumes.calls, ::testing::Contains("volumeIsReadOnly /src/0.jpg"));
}

TEST_F(IntegrityCheck, SpaceIsInsufficientFromTheFirstByteThatLacks) {
    struct SpaceCase {
        std::int64_t free;
        std::int64_t needed;
        bool isInsufficient;
    };
    constexpr SpaceCase kCases[] = {
        {1'000, 999, false}, {1'000, 1'000, false}, {1'000, 1'001, true},
        {1, 2, true},        {1, 0, false},         {0, 1, false},  // says nothing, as one without a notion of space
        {-1, 1, false},
    };
    addFiles(1);
    for (const auto& [free, needed, isInsufficient] : kCases) {
        SCOPED_TRACE(std::to_string(free) + " free, " + std::to_string(needed) + " needed");
        volumes.free[dest] = free;
        EXPECT_EQ(check({}, needed).insufficientSpace, isInsufficient);
        EXPECT_EQ(check(moving(), needed).insufficientSpace, isInsufficient);
    }
}

TEST_F(IntegrityCheck, SpaceThatCannotBeToldIsSufficient) {
    addFiles(1);
    EXPECT_FALSE(check({}, 1'000'000).insufficientSpace);
}

TEST_F(IntegrityCheck, SuspectsEmptyFilesByNameAndNamesUnreadableOnesByPath) {
    addFiles(1, 0);
    addFiles(1, 1);
    addFiles(1, std::nullopt);
    addFiles(1, std::nullopt);
    closeFrom(1, 2);
    const auto report = check();
    EXPECT_THAT(report.suspectedCorrupt, ElementsAre("0.jpg"));
    EXPECT_THAT(report.unreadableFiles, ElementsAre("/src/1.jpg", "/src/2.jpg"));
    EXPECT_THAT(report.noDateSignal, IsEmpty());
}

TEST_F(IntegrityCheck, AnEmptyFileIsNotTestedFurther) {
    addFiles(1, 0);
    closeFrom(0, 1);
    const auto report = check();
    EXPECT_THAT(report.suspectedCorrupt, ElementsAre("0.jpg"));
    EXPECT_THAT(report.unreadableFiles, IsEmpty());
    EXPECT_THAT(volumes.calls, ElementsAre("availableBytes /dest"));
}

TEST_F(IntegrityCheck, ThirtyUnreadableFilesBehindTheSamplePass) {
    addFiles(50);
    closeFrom(20, 30);
    EXPECT_EQ(check(), (IntegrityReport{{}, {}, {}, false, false, 50}));
    EXPECT_THAT(integrityLines(check()), ElementsAre("✓ Integrity check passed — 50 files OK"));
}

TEST_F(IntegrityCheck, TheTwentiethFileIsTheLastOfTheSample) {
    addFiles(19);
    addFiles(2, 0);
    EXPECT_THAT(check().suspectedCorrupt, ElementsAre("19.jpg"));
    files.clear();
    addFiles(21);
    closeFrom(19, 2);
    EXPECT_THAT(check().unreadableFiles, ElementsAre("/src/19.jpg"));
}

TEST_F(IntegrityCheck, ACancelledRunGetsWhatWasFoundSoFar) {
    addFiles(1, 0);
    volumes.readOnly["/src/0.jpg"] = true;
    volumes.free[dest] = 1;
    volumes.stopsAt = "volumeIsReadOnly /src/0.jpg";
    EXPECT_EQ(check(moving(), 2), (IntegrityReport{{}, {}, {}, true, false, 1}));
    EXPECT_THAT(volumes.calls, ElementsAre("volumeIsReadOnly /src/0.jpg"));

    volumes.calls.clear();
    volumes.stop = std::stop_source();
    volumes.stopsAt = "availableBytes /dest";
    EXPECT_EQ(check(moving(), 2), (IntegrityReport{{}, {}, {}, true, true, 1}));
}

TEST_F(IntegrityCheck, WithinTheSampleACancelIsNotLookedAt) {
    addFiles(3);
    closeFrom(2, 1);
    volumes.stopsAt = "read /src/0.jpg";
    EXPECT_THAT(check().unreadableFiles, ElementsAre("/src/2.jpg"));
}

TEST_F(IntegrityCheck, ARunThatWasCancelledBeforeStillGetsTheFirstStep) {
    addFiles(1);
    volumes.readOnly["/src/0.jpg"] = true;
    volumes.stop.request_stop();
    EXPECT_EQ(check(moving()), (IntegrityReport{{}, {}, {}, true, false, 1}));
}

std::vector<std::string> paths(std::size_t count) {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < count; ++i)
        paths.push_back("/src/" + std::to_string(i));
    return paths;
}

TEST(IntegrityLines, WithoutIssuesOneLineTellsHowManyFilesThereAre) {
    EXPECT_THAT(integrityLines({}), ElementsAre("✓ Integrity check passed — 0 files OK"));
    EXPECT_THAT(integrityLines({{}, {}, {}, false, false, 1}), ElementsAre("✓ Integrity check passed — 1 files OK"));
    EXPECT_THAT(integrityLines({{}, {"a"}, {}, false, false, 300'000}),
                ElementsAre("✓ Integrity check passed — 300000 files OK"));
}

TEST(IntegrityLines, EachIssueAloneIsTold) {
    EXPECT_THAT(integrityLines({{}, {}, {}, true, false, 0}),
                ElementsAre("⚠ Integrity issues found:", "  ✗ Source volume is read-only (safe for copy, not move)"));
    EXPECT_THAT(integrityLines({{}, {}, {}, false, true, 0}),
                ElementsAre("⚠ Integrity issues found:", "  ✗ Insufficient space on destination"));
    EXPECT_THAT(integrityLines({{}, {}, {"a.jpg"}, false, false, 0}),
                ElementsAre("⚠ Integrity issues found:", "  ✗ Suspected corrupt: a.jpg"));
    EXPECT_THAT(integrityLines({{"/src/a.jpg"}, {}, {}, false, false, 0}),
                ElementsAre("⚠ Integrity issues found:", "  ✗ Unreadable: /src/a.jpg"));
}

TEST(IntegrityLines, AllIssuesComeInAFixedOrder) {
    EXPECT_THAT(integrityLines({{"/src/c"}, {}, {"a", "b"}, true, true, 3}),
                ElementsAre("⚠ Integrity issues found:", "  ✗ Source volume is read-only (safe for copy, not move)",
                            "  ✗ Insufficient space on destination", "  ✗ Suspected corrupt: a",
                            "  ✗ Suspected corrupt: b", "  ✗ Unreadable: /src/c"));
}

TEST(IntegrityLines, FiveUnreadableFilesAreNamedAndTheRestCounted) {
    EXPECT_THAT(integrityLines({paths(5), {}, {}, false, false, 0}),
                ElementsAre("⚠ Integrity issues found:", "  ✗ Unreadable: /src/0", "  ✗ Unreadable: /src/1",
                            "  ✗ Unreadable: /src/2", "  ✗ Unreadable: /src/3", "  ✗ Unreadable: /src/4"));
    EXPECT_THAT(integrityLines({paths(6), {}, {}, false, false, 0}),
                ElementsAre("⚠ Integrity issues found:", "  ✗ Unreadable: /src/0", "  ✗ Unreadable: /src/1",
                            "  ✗ Unreadable: /src/2", "  ✗ Unreadable: /src/3", "  ✗ Unreadable: /src/4",
                            "  … and 1 more unreadable files"));
    EXPECT_EQ(integrityLines({paths(20), {}, {}, false, false, 0}).back(), "  … and 15 more unreadable files");
}

TEST(IntegrityLines, EverySuspectedFileIsNamed) {
    EXPECT_EQ(integrityLines({{}, {}, paths(20), false, false, 0}).size(), 21);
}

TEST(AvailableCapacity, IsWhatTheVolumeHasLeft) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto bytes = availableCapacity(fileSystem, folder.path());
    ASSERT_TRUE(bytes.has_value());
    EXPECT_GT(*bytes, 0);
}

TEST(AvailableCapacity, IsUnknownWhereNothingStandsOrThereIsNoNotionOfSpace) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    for (const auto& path : {folder / "missing", folder.write("file") + "/below", std::string(), std::string("/proc")})
        EXPECT_FALSE(availableCapacity(fileSystem, path).has_value()) << path;
}

TEST(AvailableCapacity, BeginsAtOneByte) {
    PretendVolumes volumes;
    volumes.free = {{"/one", 1}, {"/full", 0}, {"/odd", -1}};
    EXPECT_EQ(availableCapacity(volumes, "/one"), 1);
    EXPECT_EQ(availableCapacity(volumes, "/full"), std::nullopt);
    EXPECT_EQ(availableCapacity(volumes, "/odd"), std::nullopt);
    EXPECT_EQ(availableCapacity(volumes, "/unknown"), std::nullopt);
}

TEST(AvailableCapacity, OfAFullVolumeIsUnknown) {
    const auto error = testing::withVolumeOfItsOwn(2 * kPage, [](const testing::VolumeOfItsOwn& volume) {
        LinuxFileSystem fileSystem;
        const auto file = fileSystem.createFile(volume.path() + "/file", NewFileAccess::usual);
        ASSERT_TRUE(file.has_value());
        const std::string page(kPage, 'x');
        ASSERT_TRUE((*file)->write(std::as_bytes(std::span(page))).has_value());
        EXPECT_EQ(availableCapacity(fileSystem, volume.path()), kPage);
        ASSERT_TRUE((*file)->write(std::as_bytes(std::span(page))).has_value());
        EXPECT_EQ(availableCapacity(fileSystem, volume.path()), std::nullopt);
    });
    EXPECT_THAT(error, testing::doneOrForbidden());
}

TEST(IntegrityCheckOnDisk, FindsWhatThisUserCannotRead) {
    const TemporaryFolder folder;
    const auto sourceRoot = std::make_shared<const std::string>(folder.path());
    std::vector<TaggedFile> files;
    for (const auto* name : {"closed.jpg", "open.jpg", "empty and closed.jpg"}) {
        const bool isEmpty = std::string_view(name).starts_with("empty");
        files.push_back({folder.write(name, isEmpty ? "" : "1"), sourceRoot, isEmpty ? 0 : 1});
        const bool isClosed = std::string_view(name).ends_with("closed.jpg");
        std::filesystem::permissions(files.back().path, std::filesystem::perms{isClosed ? 0000U : 0644U});
    }
    files.push_back({folder / "gone.jpg", sourceRoot, 1});
    LinuxFileSystem disk;
    const testing::ScopedOrdinaryUser user(folder.path());
    const auto report = runIntegrityCheck(disk, {files, 0, folder.path()}, {}, {});
    EXPECT_THAT(report.unreadableFiles, ElementsAre(folder / "closed.jpg", folder / "gone.jpg"));
    EXPECT_THAT(report.suspectedCorrupt, ElementsAre("empty and closed.jpg"));
}

}  // namespace
}  // namespace vellomar
