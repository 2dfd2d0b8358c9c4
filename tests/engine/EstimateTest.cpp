#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <limits>
#include <string>
#include <tuple>

#include <gmock/gmock.h>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

#include "engine/Estimate.h"
#include "platform/LinuxFileSystem.h"
#include "support/ForwardingFileSystem.h"
#include "support/ScopedOrdinaryUser.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryFolder;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();

RunEstimate estimate(const std::vector<std::string>& sources, const Options& options = {}) {
    LinuxFileSystem fileSystem;
    return estimateRun(fileSystem, sources, options);
}

// A dry run that costs 0.05 seconds a file.
Options plainest() {
    Options options;
    options.useExifToolForImages = options.useExifToolForVideo = false;
    options.computeHashForDuplicates = options.parseNameDates = options.parseMonthWords = false;
    return options;
}

Options withEverything() {
    Options options;
    options.useExifToolForImages = options.useExifToolForVideo = true;
    options.computeHashForDuplicates = options.parseNameDates = options.parseMonthWords = true;
    return options;
}

TEST(Estimate, TheCostOfAFileIsTheSumOfWhatIsSwitchedOn) {
    struct CostCase {
        bool metadata;
        bool hash;
        bool nameDates;
        bool monthWords;
        double seconds;
    };
    constexpr std::array<CostCase, 16> kCases = {{
        {false, false, false, false, 0.050},
        {false, false, false, true, 0.052},
        {false, false, true, false, 0.055},
        {false, false, true, true, 0.057},
        {false, true, false, false, 0.080},
        {false, true, false, true, 0.082},
        {false, true, true, false, 0.085},
        {false, true, true, true, 0.087},
        {true, false, false, false, 0.130},
        {true, false, false, true, 0.132},
        {true, false, true, false, 0.135},
        {true, false, true, true, 0.137},
        {true, true, false, false, 0.160},
        {true, true, false, true, 0.162},
        {true, true, true, false, 0.165},
        {true, true, true, true, 0.167},
    }};
    for (const auto& [metadata, hash, nameDates, monthWords, seconds] : kCases) {
        SCOPED_TRACE(seconds);
        auto options = plainest();
        options.useExifToolForImages = metadata;
        options.computeHashForDuplicates = hash;
        options.parseNameDates = nameDates;
        options.parseMonthWords = monthWords;
        EXPECT_DOUBLE_EQ(estimatedSeconds(1, kMost, options), seconds);
        EXPECT_DOUBLE_EQ(estimatedSeconds(300'000, 0, options), 300'000 * seconds);
    }
}

TEST(Estimate, MetadataOfImagesOrFilmsOrBothCostsTheSame) {
    for (const auto& [images, films, seconds] :
         {std::tuple(false, false, 0.05), {true, false, 0.13}, {false, true, 0.13}, {true, true, 0.13}}) {
        SCOPED_TRACE(std::to_string(images) + std::to_string(films));
        auto options = plainest();
        options.useExifToolForImages = images;
        options.useExifToolForVideo = films;
        EXPECT_DOUBLE_EQ(estimatedSeconds(1, 0, options), seconds);
    }
}

TEST(Estimate, ARealRunAlsoCopies120MegabytesASecond) {
    auto options = withEverything();
    EXPECT_DOUBLE_EQ(estimatedSeconds(1'000, 10'000'000'000, options), 167);
    options.dryRun = false;
    EXPECT_DOUBLE_EQ(estimatedSeconds(1'000, 10'000'000'000, options), 1'000 * 0.167 + 10'000'000'000.0 / 120'000'000);
    EXPECT_DOUBLE_EQ(estimatedSeconds(0, 120'000'000, options), 1);
    EXPECT_DOUBLE_EQ(estimatedSeconds(0, 60'000'000, options), 0.5);
    EXPECT_DOUBLE_EQ(estimatedSeconds(0, 0, options), 0);
}

TEST(Estimate, NothingElseInTheOptionsCostsTime) {
    auto options = plainest();
    options.moveOriginalsWhenReliable = options.includeVideos = options.includeOther = true;
    options.syncFSDates = options.resumeFromManifest = options.usePerceptualHash = true;
    options.storageIsNetwork = options.convertHEICToJPEG = options.stripGPS = options.stripAllMetadata = true;
    options.verifyAfterCopy = options.keepRawJpegPairs = options.moveSidecars = options.includeImages = false;
    EXPECT_DOUBLE_EQ(estimatedSeconds(1, 0, options), 0.05);
}

struct TreeFile {
    std::string path;
    std::string content;
    bool counts;
};

const std::vector<TreeFile>& treeFiles() {
    static const std::vector<TreeFile> files = {
        {"photo.jpg", "1234567", true},
        {"sub/film.MOV", "12345", true},
        {"sub/deeper/notes", "123", true},
        {"sub/deeper/a.verylongext", "12", true},
        {"empty.jpg", "", true},
        {"Folder2.jpg", "1234", true},
        {"thumbs.db.jpg", "1234567890", true},
        {"ends with a dot.", "1", true},
        {"caf\xE9.jpg", "123456", true},
        {"ümlaut \xF0\x9F\x93\xB7.jpg", "12345678", true},
        {"two\nlines", "123456789", true},
        {std::string(255, 'n'), "12345678901", true},
        {"looks like junk.tmp/inside.jpg", "123456789012", true},
        {".hidden.jpg", "hidden", false},
        {".hidden/inside.jpg", "hidden", false},
        {"sub/.Trash/deeper/inside.jpg", "hidden", false},
        {"Thumbs.db", "junk by name", false},
        {"sub/FOLDER.JPG", "junk by name", false},
        {"mspaint.exe", "junk by name", false},
        {"ZbThumbnail.info", "junk by name", false},
        {"catalogue.DB", "junk by extension", false},
        {"a.ini", "junk by extension", false},
        {"a.lnk", "junk by extension", false},
        {"a.url", "junk by extension", false},
        {"a.Tmp", "junk by extension", false},
        {".DS_Store", "junk by its dot", false},
    };
    return files;
}

// All that a folder may hold; `expected` is what counts.
class Tree {
public:
    Tree() {
        for (const auto& file : treeFiles()) {
            folder.write("tree/" + file.path, file.content);
            if (file.counts) expect(static_cast<std::int64_t>(file.content.size()));
        }
        makeSparseFile(std::int64_t{3} << 40);
        makeLinks();
        EXPECT_EQ(mkfifo((path + "/pipe.jpg").c_str(), 0600), 0);
        fs::create_directory(path + "/empty folder");
    }

    TemporaryFolder folder{TemporaryFolder::Where::inMemory};
    std::string path = folder / "tree";
    RunEstimate expected;

private:
    void expect(std::int64_t size) {
        ++expected.fileCount;
        expected.totalBytes += size;
    }

    void makeSparseFile(std::int64_t size) {
        fs::resize_file(folder.write("tree/sub/sparse.mov", ""), static_cast<std::uintmax_t>(size));
        expect(size);
    }

    // A hard link is one more file; a symlink is none, wherever it leads.
    void makeLinks() {
        fs::create_hard_link(path + "/photo.jpg", path + "/sub/the same photo.jpg");
        expect(7);
        const auto elsewhere = folder.write("elsewhere/far.jpg", "far away");
        fs::create_symlink(elsewhere, path + "/to a file.jpg");
        fs::create_directory_symlink(folder / "elsewhere", path + "/to a folder");
        fs::create_symlink("nowhere", path + "/dangling.jpg");
        fs::create_directory_symlink("..", path + "/sub/loop");
        fs::create_symlink("itself.jpg", path + "/itself.jpg");
    }
};

TEST(Estimate, CountsATreeToTheByte) {
    const Tree tree;
    const auto found = estimate({tree.path}, plainest());
    EXPECT_EQ(found.fileCount, tree.expected.fileCount);
    EXPECT_EQ(found.totalBytes, tree.expected.totalBytes);
    EXPECT_DOUBLE_EQ(found.estimatedSeconds, static_cast<double>(tree.expected.fileCount) * 0.05);
}

TEST(Estimate, WhatARunWouldKeepMakesNoDifference) {
    const Tree tree;
    auto options = plainest();
    options.includeImages = false;
    EXPECT_EQ(estimate({tree.path}, options).fileCount, tree.expected.fileCount);
    options.includeVideos = options.includeOther = options.resumeFromManifest = true;
    EXPECT_EQ(estimate({tree.path}, options).fileCount, tree.expected.fileCount);
    options.storageIsNetwork = true;
    const auto found = estimate({tree.path}, options);
    EXPECT_EQ(found.fileCount, tree.expected.fileCount);
    EXPECT_EQ(found.totalBytes, tree.expected.totalBytes);
}

TEST(Estimate, OverlappingSourcesCountTwice) {
    const TemporaryFolder folder;
    folder.write("a.jpg", "1");
    folder.write("sub/b.jpg", "22");
    const auto nested = estimate({folder.path(), folder / "sub"});
    EXPECT_EQ(nested.fileCount, 3);
    EXPECT_EQ(nested.totalBytes, 5);
    const auto twice = estimate({folder.path(), folder.path()});
    EXPECT_EQ(twice.fileCount, 4);
    EXPECT_EQ(twice.totalBytes, 6);
}

TEST(Estimate, ASourceIsWalkedThroughASymlinkAndUnderAHiddenName) {
    const TemporaryFolder folder;
    folder.write(".hidden/a.jpg", "22");
    fs::create_directory_symlink(folder / ".hidden", folder / "link");
    for (const auto& source : {folder / "link", folder / ".hidden", folder / ".hidden/", folder / "link//"}) {
        SCOPED_TRACE(source);
        EXPECT_EQ(estimate({source}).fileCount, 1);
        EXPECT_EQ(estimate({source}).totalBytes, 2);
    }
}

TEST(Estimate, PassesOverASourceThatCannotBeListed) {
    const TemporaryFolder folder;
    folder.write("good/a.jpg", "22");
    const auto found =
        estimate({folder / "missing", folder.write("file.jpg"), "", folder / "good", folder / "gone"}, plainest());
    EXPECT_EQ(found, (RunEstimate{1, 2, 0.05}));
}

TEST(Estimate, OfNoSourcesIsNothing) {
    EXPECT_EQ(estimate({}), RunEstimate{});
}

TEST(Estimate, PassesOverAFolderThatThisUserCannotList) {
    const TemporaryFolder folder;
    folder.write("a.jpg", "1");
    const auto closed = folder.makeFolder("closed");
    folder.write("closed/b.jpg", "22");
    fs::permissions(closed, fs::perms::none);
    {
        const testing::ScopedOrdinaryUser user(folder.path());
        EXPECT_EQ(estimate({folder.path()}, plainest()), (RunEstimate{1, 1, 0.05}));
        EXPECT_EQ(estimate({closed}), RunEstimate{});
    }
    fs::permissions(closed, fs::perms::all);
}

// One folder of as many files as asked for, "0.jpg" and so on, which exist nowhere. Their status is what `look` says.
class InventedFolder final : public testing::ForwardingFileSystem {
public:
    using Look = std::function<Expected<FileStatus>(std::size_t number)>;

    InventedFolder(std::size_t count, Look look) : ForwardingFileSystem(disk_), count_(count), look_(std::move(look)) {}

    [[nodiscard]] Expected<std::unique_ptr<Directory>> openDirectory(const std::string& /*path*/,
                                                                     bool /*followSymlink*/) override {
        return std::make_unique<Listing>(*this);
    }

private:
    class Listing final : public Directory {
    public:
        explicit Listing(const InventedFolder& folder) : folder_(folder) {}
        [[nodiscard]] Expected<std::optional<Entry>> next() override {
            if (at_ == folder_.count_) return std::nullopt;
            name_ = std::to_string(at_++) + ".jpg";
            return Entry{name_.c_str(), FileType::regular};
        }
        [[nodiscard]] Expected<FileStatus> statusOf(const char* name) override {
            return folder_.look_(std::stoul(name));
        }
        [[nodiscard]] Expected<FileIdentity> identity() override { return FileIdentity{}; }

    private:
        const InventedFolder& folder_;
        std::size_t at_ = 0;
        std::string name_;
    };

    LinuxFileSystem disk_;
    std::size_t count_;
    Look look_;
};

FileStatus regularFile(std::int64_t size) {
    FileStatus status;
    status.type = FileType::regular;
    status.size = size;
    return status;
}

TEST(Estimate, DropsAFileThatCannotBeLookedAtOrIsNoneAnyMore) {
    InventedFolder folder(3, [](std::size_t number) -> Expected<FileStatus> {
        if (number == 0) return systemFailure(ENOENT);
        auto status = regularFile(5);
        if (number == 1) status.type = FileType::directory;
        return status;
    });
    EXPECT_EQ(estimateRun(folder, {"/invented"}, plainest()), (RunEstimate{1, 5, 0.05}));
}

TEST(Estimate, SizesThatAddUpToMoreThanCanBeCountedAreAsManyAsCan) {
    InventedFolder folder(3, [](std::size_t) { return regularFile(kMost - 1); });
    const auto found = estimateRun(folder, {"/invented"}, plainest());
    EXPECT_EQ(found.fileCount, 3);
    EXPECT_EQ(found.totalBytes, kMost);
}

TEST(Estimate, HoldsNoFileInMemory) {
    constexpr std::size_t kFiles = 300'000;
    constexpr std::size_t kNoise = 64 * 1'024;
    std::size_t atFirst = 0;
    std::size_t most = 0;
    InventedFolder folder(kFiles, [&](std::size_t number) {
        const auto inUse = ::mallinfo2().uordblks;
        if (number == 0) atFirst = inUse;
        most = std::max(most, inUse);
        return regularFile(4'000'000);
    });
    const auto found = estimateRun(folder, {"/invented"}, plainest());
    EXPECT_EQ(found.fileCount, kFiles);
    EXPECT_EQ(found.totalBytes, 1'200'000'000'000);
    EXPECT_LE(most - atFirst, kNoise);
}

TEST(Estimate, EndsSoonWhenItIsAbandoned) {
    std::stop_source abandon;
    std::size_t last = 0;
    InventedFolder folder(1'000, [&](std::size_t number) {
        last = number;
        if (number == 10) abandon.request_stop();
        return regularFile(1);
    });
    static_cast<void>(estimateRun(folder, {"/invented", "/another"}, plainest(), abandon.get_token()));
    EXPECT_EQ(last, 10);
}

}  // namespace
}  // namespace vellomar
