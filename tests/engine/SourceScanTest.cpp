#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "engine/SourceScan.h"
#include "platform/LinuxFileSystem.h"
#include "platform/Path.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;
using ::testing::UnorderedElementsAre;

Options everything() {
    Options options;
    options.includeImages = options.includeVideos = options.includeOther = true;
    return options;
}

Options everythingOnNetwork() {
    auto options = everything();
    options.storageIsNetwork = true;
    return options;
}

struct Scanned {
    ScanResult result;
    std::vector<std::string> log;
    std::vector<std::size_t> reports;

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& file : result.files)
            names.emplace_back(lastPathComponent(file.path));
        return names;
    }
};

Scanned scan(const std::vector<std::string>& sources, const Options& options,
             const std::unordered_set<std::string>& skipPaths = {}) {
    LinuxFileSystem fileSystem;
    std::vector<std::string> log;
    std::vector<std::size_t> reports;
    auto result = scanSources(fileSystem, sources, options, skipPaths,
                              {.filesFound = [&](std::size_t count) { reports.push_back(count); },
                               .log = [&](std::string line) { log.push_back(std::move(line)); }});
    return {std::move(result), std::move(log), std::move(reports)};
}

TEST(SourceScan, KeepsTheKindsThatAreAskedForAndCountsThem) {
    const TemporaryFolder folder;
    for (const auto* name : {"a.jpg", "b.HEIC", "c.mov", "d.txt", "noext"})
        folder.write(name, "12345");
    Options options;
    EXPECT_THAT(scan({folder.path()}, options).names(), UnorderedElementsAre("a.jpg", "b.HEIC"));
    options.includeImages = false;
    options.includeVideos = true;
    EXPECT_THAT(scan({folder.path()}, options).names(), ElementsAre("c.mov"));
    options.includeVideos = false;
    options.includeOther = true;
    EXPECT_THAT(scan({folder.path()}, options).names(), UnorderedElementsAre("d.txt", "noext"));
    const auto all = scan({folder.path()}, everything());
    EXPECT_EQ(all.result.breakdown, (MediaBreakdown{2, 1, 2}));
}

TEST(SourceScan, LeavesOutJunkInAnyCaseOfLetters) {
    const TemporaryFolder folder;
    for (const auto* name : {"Thumbs.db", "DESKTOP.INI", "picasa.ini", "Folder.JPG", "AlbumArtSmall.jpg", "x.LNK",
                             "y.url", "z.tmp", "ZbThumbnail.info", ".DS_Store", "mspaint.exe", "thumbs.db:encryptable"})
        folder.write(name);
    folder.write("Folder2.jpg");
    EXPECT_THAT(scan({folder.path()}, everything()).names(), ElementsAre("Folder2.jpg"));
    EXPECT_THAT(scan({folder.path()}, everythingOnNetwork()).names(), ElementsAre("Folder2.jpg"));
}

TEST(SourceScan, KeepsAnOddNameToTheByte) {
    const TemporaryFolder folder;
    const std::vector<std::string> names = {"caf\xE9.jpg", "two\nlines.jpg", " leading, \"quoted\".jpg",
                                            std::string(251, 'n') + ".jpg"};
    for (const auto& name : names)
        folder.write(name);
    EXPECT_THAT(scan({folder.path()}, Options{}).names(), ::testing::UnorderedElementsAreArray(names));
}

TEST(SourceScan, DropsOnLocalStorageWhatIsNoRegularFile) {
    const TemporaryFolder folder;
    folder.makeFolder("folder.jpeg");
    folder.write("real.jpg");
    ASSERT_EQ(symlink("real.jpg", (folder / "link.jpg").c_str()), 0);
    ASSERT_EQ(mkfifo((folder / "pipe.jpg").c_str(), 0600), 0);
    EXPECT_THAT(scan({folder.path()}, everything()).names(), ElementsAre("real.jpg"));
}

TEST(SourceScan, GoesByTheNameAloneOnNetworkStorage) {
    const TemporaryFolder folder;
    folder.write("noext");
    folder.write("a.verylongext");  // 11 characters
    folder.write("b.tenletters", "123");
    folder.write("Folder 1.old/c.jpg", "1234");
    const auto scanned = scan({folder.path()}, everythingOnNetwork());
    EXPECT_THAT(scanned.names(), UnorderedElementsAre("b.tenletters", "Folder 1.old", "c.jpg"));
    EXPECT_EQ(scanned.result.fileSizes.total(), 7);
    for (const auto& file : scanned.result.files)
        EXPECT_EQ(file.size.has_value(), !file.path.ends_with(".old")) << file.path;
    EXPECT_THAT(scan({folder.path()}, everything()).names(),
                UnorderedElementsAre("noext", "a.verylongext", "b.tenletters", "c.jpg"));
}

TEST(SourceScan, CountsTheLengthOfAnExtensionInCharacters) {
    const TemporaryFolder folder;
    folder.write("a.éééééééééé");   // 10 characters, 20 bytes
    folder.write("b.ééééééééééé");  // 11
    EXPECT_THAT(scan({folder.path()}, everythingOnNetwork()).names(), ElementsAre("a.éééééééééé"));
}

TEST(SourceScan, MeasuresFilesThatItDropsAfterwards) {
    const TemporaryFolder folder;
    folder.write("a.jpg", "1");
    folder.write("b.mov", "22");
    const auto skipped = folder.write("c.jpg", "333");
    folder.write("d.txt", "4444");
    folder.write("e.tmp", "55555");  // junk is not measured
    const auto scanned = scan({folder.path()}, Options{}, {skipped});
    EXPECT_THAT(scanned.names(), ElementsAre("a.jpg"));
    EXPECT_EQ(scanned.result.breakdown, (MediaBreakdown{1, 0, 0}));
    EXPECT_EQ(scanned.result.fileSizes.total(), 10);
}

TEST(SourceScan, WalksASourceGivenTwiceTwiceAndMeasuresItOnce) {
    const TemporaryFolder folder;
    folder.write("sub/a.jpg", "123");
    const auto scanned = scan({folder.path(), folder.path()}, Options{});
    EXPECT_EQ(scanned.result.files.size(), 2);
    EXPECT_EQ(scanned.result.fileSizes.total(), 3);
    const auto nested = scan({folder.path(), folder / "sub"}, Options{});
    EXPECT_EQ(nested.result.files.size(), 2);
    EXPECT_EQ(nested.result.fileSizes.total(), 3);
    EXPECT_EQ(*nested.result.files[1].sourceRoot, folder / "sub");
}

TEST(SourceScan, TellsOfASourceThatCannotBeListedAndGoesOn) {
    const TemporaryFolder folder;
    folder.write("good/a.jpg");
    const auto scanned = scan({folder / "missing", folder / "good"}, Options{});
    EXPECT_THAT(scanned.names(), ElementsAre("a.jpg"));
    EXPECT_THAT(scanned.log, ElementsAre("Failed to enumerate source: " + (folder / "missing")));
}

TEST(SourceScan, ReportsEveryFiveHundredFiles) {
    const TemporaryFolder folder;
    for (int i = 0; i < 1'001; ++i)
        folder.write("sub" + std::to_string(i % 3) + "/" + std::to_string(i) + ".jpg", "");
    EXPECT_THAT(scan({folder.path()}, Options{}).reports, ElementsAre(500, 1'000));
}

TEST(SourceScan, FindsNothingInNoSources) {
    EXPECT_THAT(scan({}, everything()).result.files, IsEmpty());
}

}  // namespace
}  // namespace vellomar
