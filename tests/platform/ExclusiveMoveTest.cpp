#include <filesystem>

#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/ExclusiveMove.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using testing::contentOf;
using testing::exists;
using testing::TemporaryFolder;

using Move = Expected<void> (*)(const std::string& from, const std::string& to);
constexpr Move kMoves[] = {&moveByHardLink, &moveAfterLooking};

TEST(ExclusiveMove, GivesAFileItsNewNameAlone) {
    for (const auto move : kMoves) {
        const TemporaryFolder folder;
        const auto from = folder.write("a", "content");
        EXPECT_TRUE(move(from, folder / "b"));
        EXPECT_EQ(contentOf(folder / "b"), "content");
        EXPECT_FALSE(exists(from));
    }
}

TEST(ExclusiveMove, ReplacesNeitherAFileNorAFolderNorADanglingSymlink) {
    for (const auto move : kMoves) {
        const TemporaryFolder folder;
        const auto from = folder.write("a", "content");
        folder.write("file", "old");
        folder.makeFolder("folder");
        ASSERT_EQ(symlink("/nowhere", (folder / "link").c_str()), 0);
        for (const auto* taken : {"file", "folder", "link"}) {
            SCOPED_TRACE(taken);
            const auto moved = move(from, folder / taken);
            ASSERT_FALSE(moved);
            EXPECT_TRUE(isSystemError(moved.error(), EEXIST));
        }
        EXPECT_EQ(contentOf(from), "content");
        EXPECT_EQ(contentOf(folder / "file"), "old");
    }
}

TEST(ExclusiveMove, TellsWhyItCannot) {
    for (const auto move : kMoves) {
        const TemporaryFolder folder;
        const auto moved = move(folder / "missing", folder / "b");
        ASSERT_FALSE(moved);
        EXPECT_TRUE(isSystemError(moved.error(), ENOENT));
    }
}

}  // namespace
}  // namespace vellomar
