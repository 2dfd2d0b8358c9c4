#include <cerrno>
#include <filesystem>
#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/LinuxDirectory.h"
#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryFolder;

std::map<std::string, std::optional<FileType>> listingOf(FileSystem& fileSystem, const std::string& path) {
    std::map<std::string, std::optional<FileType>> entries;
    const auto directory = fileSystem.openDirectory(path, true);
    EXPECT_TRUE(directory.has_value()) << path;
    if (!directory) return entries;
    while (true) {
        const auto entry = (*directory)->next();
        EXPECT_TRUE(entry.has_value());
        if (!entry || !*entry) return entries;
        EXPECT_TRUE(entries.emplace((*entry)->name, (*entry)->type).second) << (*entry)->name;
    }
}

TEST(LinuxDirectory, ListsEveryKindOfEntry) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    folder.write("file");
    folder.makeFolder("folder");
    fs::create_symlink(folder / "folder", folder / "link");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    const std::map<std::string, std::optional<FileType>> expected = {{"file", FileType::regular},
                                                                     {"folder", FileType::directory},
                                                                     {"link", FileType::symlink},
                                                                     {"pipe", FileType::other}};
    EXPECT_EQ(listingOf(fileSystem, folder.path()), expected);
}

TEST(LinuxDirectory, ListsNamesOfEveryForm) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const std::vector<std::string> names = {".hidden",
                                            "br\xFC"
                                            "cke.jpg",
                                            "line\nbreak",
                                            "tab\tand \"quote\"",
                                            "\xFF\xFE",
                                            "...",
                                            "-rf",
                                            std::string(255, 'n'),
                                            "\xC3\xA9t\xC3\xA9"};
    for (const auto& name : names)
        folder.write(name);
    std::vector<std::string> listed;
    for (const auto& [name, type] : listingOf(fileSystem, folder.path()))
        listed.push_back(name);
    EXPECT_THAT(listed, ::testing::UnorderedElementsAreArray(names));
}

TEST(LinuxDirectory, ListsMoreThanABufferHolds) {
    constexpr int kFiles = 1'000;  // of names that fill 32 KiB many times over
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    for (int i = 0; i < kFiles; ++i)
        folder.write(std::string(200, 'n') + std::to_string(i), "");
    EXPECT_EQ(listingOf(fileSystem, folder.path()).size(), std::size_t{kFiles});
}

TEST(LinuxDirectory, AnEmptyFolderHasNoEntriesHoweverOftenItIsAsked) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto directory = fileSystem.openDirectory(folder.path(), false);
    ASSERT_TRUE(directory.has_value());
    for (int i = 0; i < 2; ++i) {
        const auto entry = (*directory)->next();
        ASSERT_TRUE(entry.has_value());
        EXPECT_FALSE(entry->has_value());
    }
}

TEST(LinuxDirectory, TellsOfItsEntriesByName) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto file = folder.write("file", "12345");
    fs::create_symlink(file, folder / "link");
    const auto directory = fileSystem.openDirectory(folder.path(), false);
    ASSERT_TRUE(directory.has_value());
    const auto status = (*directory)->statusOf("file");
    ASSERT_TRUE(status.has_value());
    EXPECT_EQ(status->type, FileType::regular);
    EXPECT_EQ(status->size, 5);
    EXPECT_EQ((*directory)->statusOf("link").value().type, FileType::symlink);
    const auto missing = (*directory)->statusOf("missing");
    ASSERT_FALSE(missing.has_value());
    EXPECT_EQ(missing.error().code, ENOENT);
}

TEST(LinuxDirectory, KnowsItsIdentity) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto directory = fileSystem.openDirectory(folder.path(), false);
    ASSERT_TRUE(directory.has_value());
    EXPECT_EQ((*directory)->identity(), fileSystem.status(folder.path()).value().identity);
}

}  // namespace
}  // namespace vellomar
