#include <filesystem>

#include <gtest/gtest.h>

#include "platform/FreeName.h"
#include "platform/LinuxFileSystem.h"
#include "platform/Path.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using testing::TemporaryFolder;

TEST(FreeName, AFreeNameIsItsOwn) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    EXPECT_EQ(uniqueDestination(fileSystem, folder / "a.jpg"), folder / "a.jpg");
    EXPECT_EQ(uniqueDestination(fileSystem, folder / "no/such/folder/a.jpg"), folder / "no/such/folder/a.jpg");
}

TEST(FreeName, TheNumberStandsBeforeTheLastExtension) {
    struct Case {
        std::string_view taken;
        std::string_view free;
    };
    constexpr Case kCases[] = {
        {"a.jpg", "a (1).jpg"},
        {"a.b.jpg", "a.b (1).jpg"},
        {"noext", "noext (1)"},
        {"dot.", "dot. (1)"},
        {".hidden", ".hidden (1)"},
        {".hidden.jpg", ".hidden (1).jpg"},
        {"a (1).jpg", "a (1) (1).jpg"},
        {"IMG.JPG", "IMG (1).JPG"},
        {"two  blanks .jpg", "two  blanks  (1).jpg"},
        {"br\xFC"
         "cke.jpg",
         "br\xFC"
         "cke (1).jpg"},
        {"line\nbreak.jpg", "line\nbreak (1).jpg"},
    };
    LinuxFileSystem fileSystem;
    for (const auto& [taken, free] : kCases) {
        SCOPED_TRACE(taken);
        const TemporaryFolder folder;
        folder.write(taken);
        EXPECT_EQ(uniqueDestination(fileSystem, folder / taken), folder / free);
    }
}

TEST(FreeName, DotsOfTheFolderDoNotCount) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.write("2019.06/noext");
    EXPECT_EQ(uniqueDestination(fileSystem, folder / "2019.06/noext"), folder / "2019.06/noext (1)");
}

TEST(FreeName, CountsUpToTheFirstFreeNumber) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.write("noext");
    folder.write("noext (1)");
    EXPECT_EQ(uniqueDestination(fileSystem, folder / "noext"), folder / "noext (2)");
    folder.write("noext (3)");
    EXPECT_EQ(uniqueDestination(fileSystem, folder / "noext"), folder / "noext (2)");
    folder.write("noext (2)");
    EXPECT_EQ(uniqueDestination(fileSystem, folder / "noext"), folder / "noext (4)");
}

TEST(FreeName, WhateverStandsThereTakesTheName) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.makeFolder("folder.jpg");
    EXPECT_EQ(uniqueDestination(fileSystem, folder / "folder.jpg"), folder / "folder (1).jpg");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling.jpg");
    EXPECT_EQ(uniqueDestination(fileSystem, folder / "dangling.jpg"), folder / "dangling (1).jpg");
}

TEST(FreeName, ReservesNothing) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.write("a.jpg");
    EXPECT_EQ(uniqueDestination(fileSystem, folder / "a.jpg"), uniqueDestination(fileSystem, folder / "a.jpg"));
    EXPECT_FALSE(testing::exists(folder / "a (1).jpg"));
}

TEST(FreeName, TheSearchEndsWhereNamesGrowTooLong) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const std::string longest = std::string(251, 'n') + ".jpg";
    folder.write(longest);
    const auto candidate = uniqueDestination(fileSystem, folder / longest);
    EXPECT_EQ(candidate, folder / (std::string(251, 'n') + " (1).jpg"));
    EXPECT_FALSE(fileSystem.createFile(candidate, NewFileAccess::usual).has_value());
}

}  // namespace
}  // namespace vellomar
