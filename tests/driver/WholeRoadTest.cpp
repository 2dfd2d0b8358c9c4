// One library on its whole road: estimate, dry run, real run, undo; with twins, lookalikes and damaged files in it.
#include <algorithm>
#include <filesystem>
#include <set>
#include <string>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "driver/DriverProcess.h"
#include "support/MediaFiles.h"
#include "support/TreeSnapshot.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::Contains;
using testing::contentOf;
using testing::differences;
using ::testing::ElementsAre;
using testing::EngineDriver;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::snapshotOf;
using ::testing::StartsWith;
using testing::TreeSnapshot;

class WholeRoad : public EngineDriver {
protected:
    void SetUp() override {
        makeLibrary();
        before = snapshotOf(source);
    }

    // Ten photos that differ, five twins of the first, two pictures that look alike, four HEIC files, and what cannot
    // be read.
    void makeLibrary() const {
        for (int i = 0; i < 10; ++i)
            folder.write(name(i, "jpg"), fmt::format("photo number {}", i));
        for (int i = 10; i < 15; ++i)
            folder.write(name(i, "jpg"), "photo number 0");
        picture(15, "png", "plasma:white-black");
        picture(16, "jpg", "plasma:white-black");
        for (int i = 17; i < 21; ++i)
            picture(i, "heic", "gradient:white-black");
        const auto heic = contentOf(folder / name(17, "heic"));
        folder.write(name(21, "heic"), std::string_view(heic).substr(0, heic.size() / 2));
        folder.write(name(22, "jpg"), "");
        folder.write("source/2019/" + std::string(200, 'n') + "_20190301_101010.jpg", "a long name");
        folder.write("source/2019/20190301_101011 \xff.jpg", "no UTF-8");
    }

    // Each a minute after the one before it.
    static std::string name(int number, std::string_view extension) {
        return fmt::format("source/part {}/IMG_20190301_12{:02}00.{}", number % 3, number, extension);
    }

    void picture(int number, std::string_view extension, const std::string& what) const {
        const auto path = name(number, extension);
        folder.makeFolder(fs::path(path).parent_path().string());
        testing::makePicture(folder, path, {"-seed", "3", "-size", "64x48", what});
        fs::remove(folder / (path + ".source.png"));
    }

    Json run(bool isDry, Json more) {
        Json options = {{"dryRun", isDry},
                        {"usePerceptualHash", true},
                        {"useExifToolForImages", false},
                        {"useExifToolForVideo", false}};
        options.update(more);
        return driver.result({{"op", "run"}, {"sources", {source}}, {"dest", dest}, {"options", options}});
    }

    Json undo() {
        for (const auto& entry : fs::directory_iterator(dest))
            if (entry.path().filename().string().starts_with("_vellomar_undo_"))
                return driver.result({{"op", "undo"}, {"manifest", entry.path().string()}});
        ADD_FAILURE() << "there is no manifest";
        return {};
    }

    static std::vector<std::string> linesOf(const Json& state) { return state.at("allLogLines"); }

    static std::set<std::string> contentsOf(const TreeSnapshot& tree) {
        std::set<std::string> contents;
        for (const auto& [path, node] : tree)
            if (node.type == fs::file_type::regular) contents.insert(node.content);
        return contents;
    }

    std::string source = folder.makeFolder("source");
    std::string dest = folder.makeFolder("dest");
    TreeSnapshot before;
};

constexpr int kFiles = 25;

TEST_F(WholeRoad, AnEstimateAndADryRunTellWhatIsThere) {
    const auto estimate = driver.result({{"op", "estimateRun"}, {"sources", {source}}, {"options", Json::object()}});
    EXPECT_EQ(estimate.at("fileCount"), kFiles);
    const auto lines = linesOf(run(true, Json::object()));
    EXPECT_THAT(lines, Contains("Found 2 duplicate group(s)."));  // the photos, and the HEIC files
    EXPECT_THAT(lines, Contains(AllOf(StartsWith("≈ Near-dup (dist="), HasSubstr("IMG_20190301_121500.png"),
                                      HasSubstr("IMG_20190301_121600.jpg"))));
    EXPECT_THAT(differences(before, snapshotOf(source)), IsEmpty());
    EXPECT_TRUE(fs::exists(dest + "/_duplicates_report.csv"));
    EXPECT_TRUE(fs::exists(dest + "/_near_duplicates_report.csv"));
}

TEST_F(WholeRoad, CopiesAreTakenBackButForThoseThatWereConverted) {
    const auto lines = linesOf(run(false, {{"convertHEICToJPEG", true}}));
    EXPECT_EQ(std::ranges::count_if(lines, [](auto& line) { return line.starts_with("✓ Copied: "); }), kFiles);
    EXPECT_EQ(std::ranges::count_if(lines, [](auto& line) { return line.starts_with("  ↳ HEIC→JPEG: "); }), 4);
    EXPECT_EQ(undo().at("statusText"), "Undo complete — reversed: 21  skipped: 4  failed: 0");
    EXPECT_THAT(differences(before, snapshotOf(source)), IsEmpty());
}

TEST_F(WholeRoad, MovedFilesAllComeBack) {
    run(false, {{"moveOriginalsWhenReliable", true}});
    EXPECT_THAT(differences(before, snapshotOf(source)), Not(IsEmpty()));
    EXPECT_EQ(undo().at("statusText"), "Undo complete — reversed: 25  skipped: 0  failed: 0");
    EXPECT_THAT(differences(before, snapshotOf(source)), IsEmpty());
    EXPECT_EQ(std::distance(fs::directory_iterator(dest), {}), 1);
}

TEST_F(WholeRoad, OfTwinsThatAreRemovedOneStays) {
    for (const auto* action : {"Skip Duplicate", "Move to _Duplicates"}) {
        SCOPED_TRACE(action);
        const auto lines = linesOf(run(false, {{"duplicateAction", action}}));
        EXPECT_EQ(std::ranges::count_if(lines, [](auto& line) { return line.starts_with("♻ "); }), 5 + 3);
        const auto kept = contentsOf(snapshotOf(dest));
        for (const auto& content : contentsOf(before))
            EXPECT_TRUE(kept.contains(content)) << content.substr(0, 20);
        EXPECT_THAT(differences(before, snapshotOf(source)), IsEmpty());
        fs::remove_all(dest);
        folder.makeFolder("dest");
    }
}

}  // namespace
}  // namespace vellomar
