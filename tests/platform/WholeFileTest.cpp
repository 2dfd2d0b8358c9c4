#include <cerrno>
#include <filesystem>

#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "platform/WholeFile.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using testing::TemporaryFolder;

TEST(WholeFile, ReadsEveryByteOfEverySize) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    for (const std::size_t size : {0U, 1U, 65'535U, 65'536U, 65'537U, 300'000U}) {
        SCOPED_TRACE(size);
        std::string content(size, 'x');
        if (size > 0) content.back() = '\0';
        const auto read = readWholeFile(fileSystem, folder.write("file", content));
        ASSERT_TRUE(read.has_value());
        EXPECT_TRUE(*read == content);
    }
}

TEST(WholeFile, FollowsASymlink) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    std::filesystem::create_symlink(folder.write("file", "text"), folder / "link");
    EXPECT_EQ(readWholeFile(fileSystem, folder / "link"), "text");
}

TEST(WholeFile, TellsWhyThereIsNothingToRead) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto missing = readWholeFile(fileSystem, folder / "missing");
    ASSERT_FALSE(missing.has_value());
    EXPECT_EQ(missing.error().code, ENOENT);
    const auto directory = readWholeFile(fileSystem, folder.path());
    ASSERT_FALSE(directory.has_value());
    EXPECT_EQ(directory.error().code, EISDIR);
}

}  // namespace
}  // namespace vellomar
