// The inputs that are kept for the fuzz programs, given to the same operations. Nothing is invented here, so this needs
// no fuzzing engine.
#include <algorithm>
#include <filesystem>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fuzz/Targets.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/metadata/ImagePropertiesReader.h"
#include "platform/decoder/worker/metadata/VideoMetadataReader.h"
#include "support/TemporaryFolder.h"

extern "C" int LLVMFuzzerInitialize(int* argumentCount, char*** arguments);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vellomar::fuzz {

// For the names of tests.
void PrintTo(const Target* target, std::ostream* stream) {
    *stream << target->name;
}

namespace {

namespace fs = std::filesystem;

using Bytes = std::vector<std::uint8_t>;

struct Seed {
    std::string name;
    Bytes content;
};

std::vector<Seed> seedsOf(const Target& target) {
    std::vector<Seed> seeds;
    for (const auto& entry : fs::directory_iterator(fs::path(FUZZ_CORPUS) / target.name)) {
        const auto content = testing::contentOf(entry.path().string());
        seeds.push_back({entry.path().filename().string(), Bytes(content.begin(), content.end())});
    }
    return seeds;
}

// A copy of just that size, so that a sanitizer sees whoever reads behind it.
void runOnCopy(const Target& target, Input input) {
    const Bytes copy(input.begin(), input.end());
    EXPECT_NO_THROW(target.run(copy)) << copy.size() << " bytes";
}

class Corpus : public ::testing::TestWithParam<const Target*> {
protected:
    void SetUp() override {
        if (target.prepare != nullptr) target.prepare();
    }

    const Target& target = *GetParam();
};

TEST_P(Corpus, EverySeedPasses) {
    const auto seeds = seedsOf(target);
    EXPECT_FALSE(seeds.empty());
    for (const auto& seed : seeds) {
        SCOPED_TRACE(seed.name);
        runOnCopy(target, seed.content);
    }
}

using TextCorpus = Corpus;

TEST_P(TextCorpus, EveryFrontOfASeedPasses) {
    for (const auto& seed : seedsOf(target)) {
        SCOPED_TRACE(seed.name);
        for (std::size_t length = 0; length < seed.content.size(); ++length)
            runOnCopy(target, Input(seed.content).first(length));
    }
}

std::vector<const Target*> textTargets() {
    std::vector<const Target*> targets;
    std::ranges::copy_if(kTargets, std::back_inserter(targets),
                         [](const Target* target) { return target->kind == InputKind::text; });
    return targets;
}

std::string nameOf(const ::testing::TestParamInfo<const Target*>& tested) {
    return std::string(tested.param->name);
}

INSTANTIATE_TEST_SUITE_P(Every, Corpus, ::testing::ValuesIn(kTargets), nameOf);
INSTANTIATE_TEST_SUITE_P(Every, TextCorpus, ::testing::ValuesIn(textTargets()), nameOf);

TEST(FuzzCorpus, EveryFolderBelongsToATarget) {
    std::set<std::string> folders;
    for (const auto& entry : fs::directory_iterator(FUZZ_CORPUS))
        folders.insert(entry.path().filename().string());
    std::set<std::string> names;
    for (const auto* target : kTargets)
        names.emplace(target->name);
    EXPECT_EQ(folders, names);
}

// A seed that its reader refuses at once would lead the invention of inputs nowhere.
TEST(FuzzCorpus, EveryImageTellsItsDate) {
    prepareImageLibrary();
    for (const auto& [name, content] : seedsOf(kImageProperties))
        EXPECT_EQ(readImageProperties(std::as_bytes(std::span(content))).dateTimeOriginal, "2023:08:14 14:30:21")
            << name;
}

TEST(FuzzCorpus, EveryVideoIsUnderstood) {
    prepareVideoLibrary();
    for (const auto& [name, content] : seedsOf(kVideoMetadata))
        EXPECT_FALSE(readVideoMetadata(std::as_bytes(std::span(content))).formats.empty()) << name;
}

TEST(FuzzCorpus, TheSeedsOfMediaAreOneOfEachFormat) {
    const auto namesOf = [](const Target& target) {
        std::set<std::string> names;
        for (const auto& seed : seedsOf(target))
            names.insert(seed.name);
        return names;
    };
    EXPECT_TRUE(std::ranges::includes(
        namesOf(kImageProperties),
        std::set<std::string>{"red.avif", "red.heic", "red.jpg", "red.png", "red.tif", "red.webp"}));
    EXPECT_TRUE(std::ranges::includes(namesOf(kVideoMetadata), std::set<std::string>{"red.3gp", "red.avi", "red.mkv",
                                                                                     "red.mov", "red.mp4", "red.mts"}));
}

// What the fuzzing engine calls, here for the one target that the build named.
TEST(FuzzMain, TakesAnyInput) {
    EXPECT_EQ(LLVMFuzzerInitialize(nullptr, nullptr), 0);
    const Bytes bytes = {'2', '0', '2', '3', 0xff};
    EXPECT_EQ(LLVMFuzzerTestOneInput(bytes.data(), bytes.size()), 0);
    EXPECT_EQ(LLVMFuzzerTestOneInput(nullptr, 0), 0);
}

}  // namespace
}  // namespace vellomar::fuzz
