#include <cerrno>
#include <filesystem>
#include <limits>

#include <gmock/gmock.h>
#include <sys/statvfs.h>

#include "platform/LinuxFileSystem.h"
#include "platform/VolumeState.h"
#include "support/TemporaryFolder.h"
#include "support/VolumeOfItsOwn.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::doneOrForbidden;
using testing::TemporaryFolder;
using testing::VolumeOfItsOwn;
using testing::withVolumeOfItsOwn;

constexpr std::size_t kPage = 4'096;
constexpr std::size_t kPages = 16;

TEST(VolumeState, OneFlagAmongOthersMeansReadOnly) {
    EXPECT_TRUE(isReadOnly({.flags = ST_RDONLY}));
    EXPECT_TRUE(isReadOnly({.flags = ST_RDONLY | ST_NOSUID | ST_NOEXEC}));
    EXPECT_FALSE(isReadOnly({.flags = 0}));
    EXPECT_FALSE(isReadOnly({.flags = ST_NOSUID | ST_NODEV | ST_NOEXEC}));
}

TEST(VolumeState, AvailableIsFragmentSizeTimesBlocks) {
    struct SpaceCase {
        std::uint64_t fragmentSize;
        std::uint64_t blocks;
        std::int64_t bytes;
    };
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    constexpr SpaceCase kCases[] = {
        {4'096, 10, 40'960}, {1, 1, 1},         {4'096, 0, 0},
        {0, 4'096, 0},       {1, kMost, kMost}, {1'048'576, 8'000'000'000'000, 8'388'608'000'000'000'000},
    };
    for (const auto& [fragmentSize, blocks, bytes] : kCases) {
        SCOPED_TRACE(std::to_string(fragmentSize) + " * " + std::to_string(blocks));
        EXPECT_EQ(availableBytesOf({.fragmentSize = fragmentSize, .availableBlocks = blocks}), bytes);
    }
}

TEST(VolumeState, MoreThanCanBeCountedIsAFailure) {
    constexpr std::uint64_t kHalf = std::uint64_t{1} << 63;
    constexpr std::uint64_t kAll = std::numeric_limits<std::uint64_t>::max();
    for (const auto& [fragmentSize, blocks] : {std::pair{std::uint64_t{1}, kHalf}, std::pair{std::uint64_t{1}, kAll},
                                               std::pair{std::uint64_t{4'096}, kAll}, std::pair{kAll, kAll}}) {
        SCOPED_TRACE(std::to_string(fragmentSize) + " * " + std::to_string(blocks));
        const auto bytes = availableBytesOf({.fragmentSize = fragmentSize, .availableBlocks = blocks});
        ASSERT_FALSE(bytes.has_value());
        EXPECT_TRUE(isSystemError(bytes.error(), EOVERFLOW));
    }
}

TEST(VolumeState, AVolumeThatTakesChangesIsNotReadOnlyAndHasRoom) {
    const TemporaryFolder folder;
    LinuxFileSystem fileSystem;
    const auto file = folder.write("file");
    fs::create_symlink(file, folder / "link");
    for (const auto& path : {folder.path(), file, folder / "link"}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(fileSystem.volumeIsReadOnly(path), false);
        EXPECT_GT(fileSystem.availableBytes(path).value(), 0);
    }
}

TEST(VolumeState, OfAPathThatLeadsNowhereNothingIsKnown) {
    const TemporaryFolder folder;
    LinuxFileSystem fileSystem;
    fs::create_symlink(folder / "nowhere", folder / "dangling");
    for (const auto& path : {folder / "missing", folder / "dangling", std::string()}) {
        SCOPED_TRACE(path);
        const auto readOnly = fileSystem.volumeIsReadOnly(path);
        ASSERT_FALSE(readOnly.has_value());
        EXPECT_TRUE(isSystemError(readOnly.error(), ENOENT));
        const auto bytes = fileSystem.availableBytes(path);
        ASSERT_FALSE(bytes.has_value());
        EXPECT_TRUE(isSystemError(bytes.error(), ENOENT));
    }
}

TEST(VolumeState, ANotionlessVolumeHasNoRoom) {
    LinuxFileSystem fileSystem;
    EXPECT_EQ(fileSystem.availableBytes("/proc"), 0);
}

TEST(VolumeState, AReadOnlyVolumeIsToldFromTheOneThatALinkToItLiesOn) {
    const TemporaryFolder outside;
    const auto error = withVolumeOfItsOwn(kPages * kPage, [&](const VolumeOfItsOwn& volume) {
        LinuxFileSystem fileSystem;
        const auto file = volume.path() + "/file";
        ASSERT_TRUE(fileSystem.createFile(file, NewFileAccess::usual).has_value());
        fs::create_symlink(file, outside / "link");
        EXPECT_EQ(fileSystem.volumeIsReadOnly(file), false);
        volume.makeReadOnly();
        EXPECT_EQ(fileSystem.volumeIsReadOnly(volume.path()), true);
        EXPECT_EQ(fileSystem.volumeIsReadOnly(file), true);
        EXPECT_EQ(fileSystem.volumeIsReadOnly(outside / "link"), true);
        EXPECT_EQ(fileSystem.volumeIsReadOnly(outside.path()), false);
    });
    EXPECT_THAT(error, doneOrForbidden());
}

TEST(VolumeState, RoomShrinksByWhatIsWrittenUntilNoneIsLeft) {
    const auto error = withVolumeOfItsOwn(kPages * kPage, [](const VolumeOfItsOwn& volume) {
        LinuxFileSystem fileSystem;
        EXPECT_EQ(fileSystem.availableBytes(volume.path()), kPages * kPage);
        const auto file = fileSystem.createFile(volume.path() + "/file", NewFileAccess::usual);
        ASSERT_TRUE(file.has_value());
        const std::string page(kPage, 'x');
        for (std::size_t left = kPages; left > 0; --left) {
            EXPECT_EQ(fileSystem.availableBytes(volume.path()), left * kPage);
            EXPECT_EQ((*file)->write(std::as_bytes(std::span(page))), kPage);
        }
        EXPECT_EQ(fileSystem.availableBytes(volume.path()), 0);
    });
    EXPECT_THAT(error, doneOrForbidden());
}

}  // namespace
}  // namespace vellomar
