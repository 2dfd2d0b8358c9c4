// Whole runs over a library as odd as real ones are, taken back: before and after are compared file by file.
#include <array>
#include <cerrno>
#include <filesystem>
#include <map>
#include <system_error>

#include <fcntl.h>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include "engine/RunFixture.h"
#include "platform/Path.h"
#include "support/SeparateVolume.h"
#include "support/TreeSnapshot.h"
#include "undo/ManifestFiles.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::differences;
using ::testing::IsEmpty;
using testing::snapshotOf;
using testing::TreeSnapshot;

constexpr int kPhotos = 200;
constexpr int kLongestNames = 6;  // of the photos
constexpr std::size_t kLongestName = 255;

const std::string& folderOf(int number) {
    static const std::array<std::string, 8> folders = {
        "",
        "Rome/",
        "Rome/first day/",
        "a/b/c/d/e/",
        "br\xFC"
        "cke/",
        "two  blanks /",
        "line\nend/",
        "\xFF\xFE not text/",
    };
    return folders.at(static_cast<std::size_t>(number) % folders.size());
}

// Every name bears a date, so that a move takes it. Every fifth photo was shot in the second of the one before.
std::string nameOf(int number) {
    const auto shot = number - (number % 5 == 4 ? 1 : 0);
    auto name = fmt::format("202308{:02}_1430{:02}_{:03}", 1 + shot / 60, shot % 60, number);
    if (number < kLongestNames) name += std::string(kLongestName - name.size() - 4, 'n');
    if (number % 7 == 6) name += "_\xE4\xF6\xFC";
    return name + (number % 10 == 9 ? ".MP4" : ".jpg");
}

// Some are empty, and some are equal.
std::string contentOf(int number) {
    if (number % 11 == 10) return "";
    return number % 6 == 5 ? "the same" : fmt::format("photo {}", number);
}

void setModified(const std::string& path, std::int64_t seconds, std::int64_t nanoseconds) {
    const std::array<timespec, 2> times = {timespec{0, UTIME_OMIT}, timespec{seconds, nanoseconds}};
    if (::utimensat(AT_FDCWD, path.c_str(), times.data(), 0) != 0)
        throw std::system_error(errno, std::generic_category(), path);
}

// Before 1970, to the nanosecond, and behind the end of 32 bits.
void makeOdd(const std::string& path, int number) {
    constexpr std::array<mode_t, 5> kModes = {0644, 0444, 0400, 0664, 0755};
    constexpr std::array<std::int64_t, 4> kSeconds = {1'693'569'600, -100'000'000, 0, 5'000'000'000};
    const auto at = static_cast<std::size_t>(number);
    setModified(path, kSeconds.at(at % kSeconds.size()) + number, number % 3 == 0 ? 0 : 123'456'789);
    if (::chmod(path.c_str(), kModes.at(at % kModes.size())) != 0)
        throw std::system_error(errno, std::generic_category(), path);
}

// Folders without anything in them that a sweep may take, from the innermost on.
void dropEmptyFolders(TreeSnapshot& tree) {
    for (auto node = tree.rbegin(); node != tree.rend();) {
        const auto& path = node->first;
        const bool isHidden = path.starts_with('.') || path.find("/.") != std::string::npos;
        const auto below = tree.lower_bound(path + "/");
        const bool isEmpty = below == tree.end() || !below->first.starts_with(path + "/");
        if (node->second.type == fs::file_type::directory && isEmpty && !isHidden)
            node = std::make_reverse_iterator(tree.erase(std::next(node).base()));
        else
            ++node;
    }
}

bool isManifest(const std::string& path) {
    return path.starts_with("_vellomar_undo_");
}

class UndoWholeTree : public RunTest {
protected:
    UndoWholeTree() {
        for (int number = 0; number < kPhotos; ++number) {
            const auto path = folder.write("source/" + folderOf(number) + nameOf(number), contentOf(number));
            makeOdd(path, number);
            numbers.emplace(path, number);
        }
        // What no run takes.
        folder.write("source/notes.txt", "notes");
        folder.write("source/.hidden/20230814_143021.jpg", "hidden");
        folder.makeFolder("source/empty");
        fs::create_symlink("notes.txt", source + "/link.jpg");
        // What was there before, in folders that the run uses too.
        folder.write("dest/2023/2023-08-01/kept.jpg", "kept");
        folder.write("dest/.hidden/kept.jpg", "kept");
        folder.makeFolder("dest/.hidden/empty");
    }

    // Names of no more than a time, so that the longest names fit too.
    [[nodiscard]] static Options wholeRun(const Options& of) {
        auto options = of;
        options.namingStyle = NamingStyle::archival;
        options.includeVideos = true;
        options.computeHashForDuplicates = false;
        return options;
    }

    // A run of all photos; returns its manifest.
    UndoManifest manifestOf(const Options& options) {
        testing::EngineHarness engine({.fileSystem = &fileSystem, .clock = &clock, .metadataReaders = &noReaders});
        engine.run({source}, dest, options);
        EXPECT_EQ(engine.state().statusText, "Done");
        auto manifest = loadNewestManifest(disk, dest);
        EXPECT_TRUE(manifest.has_value());
        EXPECT_EQ(manifest.value_or(UndoManifest{}).entries.size(), kPhotos);
        return manifest.value_or(UndoManifest{});
    }

    // Of the photo that an entry is about.
    [[nodiscard]] int numberOf(const UndoEntry& entry) const { return numbers.at(entry.source); }

    // As a user may, who owns the file.
    void overwrite(const std::string& path, std::string_view content) const {
        if (testing::exists(path)) fs::permissions(path, fs::perms::owner_write, fs::perm_options::add);
        folder.write(path.substr(folder.path().size() + 1), content);
    }

    void undo(const UndoManifest& manifest, const std::string& outcome, FileSystem* on = nullptr) {
        testing::EngineHarness engine({.fileSystem = on != nullptr ? on : &fileSystem, .clock = &clock});
        engine.undo(manifest);
        EXPECT_EQ(engine.state().statusText, "Undo complete — " + outcome)
            << ::testing::PrintToString(engine.observer.allLogLines);
    }

    void expectSource(const TreeSnapshot& expected) const {
        EXPECT_THAT(differences(expected, snapshotOf(source)), IsEmpty());
    }

    // The manifests apart.
    void expectDest(const TreeSnapshot& expected) const {
        auto now = snapshotOf(dest);
        EXPECT_EQ(std::erase_if(now, [](const auto& node) { return isManifest(node.first); }), 1);
        auto then = expected;
        std::erase_if(then, [](const auto& node) { return isManifest(node.first); });
        EXPECT_THAT(differences(then, now), IsEmpty());
    }

    testing::NoMetadataReaders noReaders;
    std::map<std::string, int> numbers;  // of the photos, by path
};

TEST_F(UndoWholeTree, OfACopyOnlyTheManifestRemains) {
    const auto sourceBefore = snapshotOf(source);
    const auto destBefore = snapshotOf(dest);
    const auto manifest = manifestOf(wholeRun(copyOptions()));
    expectSource(sourceBefore);
    undo(manifest, "reversed: 200  skipped: 0  failed: 0");
    expectSource(sourceBefore);
    expectDest(destBefore);
    undo(manifest, "reversed: 0  skipped: 200  failed: 0");
    expectSource(sourceBefore);
    expectDest(destBefore);
}

TEST_F(UndoWholeTree, OfAMoveEverythingIsBackAsItWas) {
    const auto sourceBefore = snapshotOf(source);
    const auto destBefore = snapshotOf(dest);
    for (const bool withHashes : {false, true}) {
        auto options = wholeRun(moveOptions());
        options.computeHashForDuplicates = withHashes;
        const auto manifest = manifestOf(options);
        for (const auto& entry : manifest.entries)
            ASSERT_EQ(entry.sha256.has_value(), withHashes);
        undo(manifest, "reversed: 200  skipped: 0  failed: 0");
        expectSource(sourceBefore);
        undo(manifest, "reversed: 0  skipped: 200  failed: 0");
        expectSource(sourceBefore);
        if (!withHashes) expectDest(destBefore);
    }
}

TEST_F(UndoWholeTree, OfAMoveBetweenVolumesEverythingIsBackAsItWas) {
    const auto sourceBefore = snapshotOf(source);
    const auto destBefore = snapshotOf(dest);
    testing::SeparateVolume separate(fileSystem, source);
    undo(manifestOf(wholeRun(moveOptions())), "reversed: 200  skipped: 0  failed: 0", &separate);
    expectSource(sourceBefore);
    expectDest(destBefore);
}

TEST_F(UndoWholeTree, FoldersThatWereClearedAwayAreMadeAgain) {
    auto sourceBefore = snapshotOf(source);
    const auto manifest = manifestOf(wholeRun(moveOptions()));
    fs::remove_all(source);
    undo(manifest, "reversed: 200  skipped: 0  failed: 0");
    for (const auto* name : {"notes.txt", ".hidden", ".hidden/20230814_143021.jpg", "empty", "link.jpg"})
        sourceBefore.erase(name);
    expectSource(sourceBefore);
}

TEST_F(UndoWholeTree, OfACopyWhatWasChangedByHandStays) {
    const auto sourceBefore = snapshotOf(source);
    auto expectedDest = snapshotOf(dest);
    const auto manifest = manifestOf(wholeRun(copyOptions()));
    for (const auto& entry : manifest.entries) {
        const int number = numberOf(entry);
        if (number % 4 == 1) overwrite(entry.destination, "edited");
        if (number % 4 == 3) fs::remove(entry.destination);
    }
    for (const auto& [path, node] : snapshotOf(dest))
        if (node.type == fs::file_type::directory || node.content == "edited") expectedDest[path] = node;
    dropEmptyFolders(expectedDest);
    undo(manifest, "reversed: 100  skipped: 100  failed: 0");
    expectSource(sourceBefore);
    expectDest(expectedDest);
}

// Half of the files are left alone; of the others a third was edited, a third deleted, and a third has its old name
// taken, which leaves no free one beside it for one of the longest.
TEST_F(UndoWholeTree, OfAMoveWhatWasChangedByHandStaysAndNothingIsReplaced) {
    auto options = wholeRun(moveOptions());
    options.computeHashForDuplicates = true;
    const auto manifest = manifestOf(options);
    for (const auto& entry : manifest.entries) {
        const int number = numberOf(entry);
        if (number % 6 == 1) overwrite(entry.destination, "edited");
        if (number % 6 == 3) fs::remove(entry.destination);
        if (number % 6 == 5) overwrite(entry.source, "new here");
    }
    auto expectedSource = snapshotOf(source);
    auto expectedDest = snapshotOf(dest);
    for (const auto& entry : manifest.entries) {
        const int number = numberOf(entry);
        if (number % 6 == 1 || number % 6 == 3) continue;
        auto name = entry.source.substr(source.size() + 1);
        if (number % 6 == 5) name.insert(name.rfind('.'), " (1)");
        if (lastPathComponent(name).size() > kLongestName) continue;
        auto node = expectedDest.extract(entry.destination.substr(dest.size() + 1));
        node.key() = name;
        expectedSource.insert(std::move(node));
    }
    dropEmptyFolders(expectedDest);
    undo(manifest, "reversed: 132  skipped: 67  failed: 1");
    expectSource(expectedSource);
    expectDest(expectedDest);
}

}  // namespace
}  // namespace vellomar
