#include <filesystem>

#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"
#include "ui/duplicates/FileLook.h"

namespace vellomar {
namespace {

class FileLookTest : public ::testing::Test {
protected:
    testing::TemporaryFolder folder;
    LinuxFileSystem fileSystem;
};

TEST_F(FileLookTest, TakesTheFirstPlaceWithAFile) {
    const auto first = folder.write("first.jpg", "12345");
    const auto second = folder.write("second.jpg", "1");
    ASSERT_TRUE(fileSystem.setModificationDate(first, instantFromUnixSeconds(std::int64_t{1'000'000'000})));
    const auto found = firstFileAt(fileSystem, {first, second});
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->path, first);
    EXPECT_EQ(found->size, 5);
    EXPECT_EQ(found->modified, instantFromUnixSeconds(std::int64_t{1'000'000'000}));
    EXPECT_EQ(firstFileAt(fileSystem, {folder / "gone.jpg", second})->path, second);
    EXPECT_EQ(firstFileAt(fileSystem, {"", second})->path, second);
}

TEST_F(FileLookTest, AFolderIsNoFileAndALinkIsTheFileThatItLeadsTo) {
    const auto file = folder.write("file.jpg", "123");
    std::filesystem::create_symlink(file, folder / "link.jpg");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling.jpg");
    EXPECT_FALSE(firstFileAt(fileSystem, {folder.path(), folder / "dangling.jpg"}).has_value());
    const auto found = firstFileAt(fileSystem, {folder / "link.jpg"});
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->path, folder / "link.jpg");
    EXPECT_EQ(found->size, 3);
}

TEST_F(FileLookTest, FindsNothingWhereThereIsNothing) {
    EXPECT_FALSE(firstFileAt(fileSystem, {}).has_value());
    EXPECT_FALSE(firstFileAt(fileSystem, {"", folder / "gone.jpg"}).has_value());
}

}  // namespace
}  // namespace vellomar
