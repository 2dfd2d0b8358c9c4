// Leaving unhashed what cannot have a duplicate must not lose one.
#include <map>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "engine/SizeCensus.h"
#include "engine/SourceScan.h"
#include "platform/FileDigest.h"
#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using testing::TemporaryFolder;
using Groups = std::set<std::multiset<std::string>>;

// Few sizes and few letters, so that equal files, equal sizes and lonely files all occur.
void makeRandomLibrary(const TemporaryFolder& folder, std::mt19937& random) {
    const auto count = 1 + random() % 30;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string content(random() % 6, static_cast<char>('a' + random() % 2));
        folder.write("d" + std::to_string(random() % 3) + "/" + std::to_string(i) + ".jpg", content);
    }
}

Groups groupsOf(FileSystem& fileSystem, const std::vector<TaggedFile>& files,
                const std::function<bool(const TaggedFile&)>& isHashed) {
    std::map<std::string, std::multiset<std::string>> byHash;
    for (const auto& file : files)
        if (isHashed(file)) byHash[sha256OfFile(fileSystem, file.path).value()].insert(file.path);
    Groups groups;
    for (const auto& [hash, paths] : byHash)
        if (paths.size() > 1) groups.insert(paths);
    return groups;
}

TEST(DuplicateHashing, HashingOnlyRepeatedSizesFindsTheSameGroups) {
    LinuxFileSystem fileSystem;
    std::mt19937 random(20'230'814);
    std::size_t groupsEver = 0;
    std::size_t savedEver = 0;
    for (int round = 0; round < 100; ++round) {
        SCOPED_TRACE(round);
        const TemporaryFolder folder(TemporaryFolder::Where::inMemory);
        makeRandomLibrary(folder, random);
        std::vector<std::string> sources = {folder.path()};
        if (random() % 4 == 0) sources.push_back(folder.path());  // a source given twice
        auto files =
            scanSources(fileSystem, sources, Options{}, {}, {.filesFound = [](auto) {}, .log = [](auto) {}}).files;
        if (random() % 4 == 0) files[random() % files.size()].size.reset();  // a size that could not be read
        const SizeCensus census(files);
        const auto all = groupsOf(fileSystem, files, [](const auto&) { return true; });
        const auto sparing =
            groupsOf(fileSystem, files, [&](const auto& file) { return census.mayHaveDuplicate(file); });
        EXPECT_EQ(sparing, all);
        groupsEver += all.size();
        for (const auto& file : files)
            savedEver += census.mayHaveDuplicate(file) ? 0U : 1U;
    }
    EXPECT_GT(groupsEver, 0);
    EXPECT_GT(savedEver, 0);
}

}  // namespace
}  // namespace vellomar
