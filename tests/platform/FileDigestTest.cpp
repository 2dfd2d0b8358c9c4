#include <filesystem>

#include <gtest/gtest.h>

#include "platform/FileDigest.h"
#include "platform/LinuxFileSystem.h"
#include "support/ScopedOrdinaryUser.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using testing::ScopedOrdinaryUser;
using testing::TemporaryFolder;

TEST(FileDigest, IsThePublishedSha256) {
    struct Case {
        std::string content;
        std::string_view digest;
    };
    const Case kCases[] = {
        {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
         "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
        {std::string(1'000'000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
    };
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    for (const auto& [content, digest] : kCases) {
        SCOPED_TRACE(digest);
        EXPECT_EQ(sha256OfFile(fileSystem, folder.write("file", content)), digest);
    }
}

TEST(FileDigest, CoversEveryByteAroundTheSizeOfTheBuffer) {
    constexpr std::size_t kBuffer = 256 * 1024;
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    for (const std::size_t size : {kBuffer - 1, kBuffer, kBuffer + 1, 3 * kBuffer}) {
        SCOPED_TRACE(size);
        std::string content(size, 'a');
        const auto before = sha256OfFile(fileSystem, folder.write("file", content));
        content.back() = 'b';
        const auto behind = sha256OfFile(fileSystem, folder.write("file", content));
        ASSERT_TRUE(before && behind);
        EXPECT_EQ(before->size(), 64U);
        EXPECT_NE(*before, *behind);
    }
}

TEST(FileDigest, FollowsASymlink) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto path = folder.write("file", "abc");
    std::filesystem::create_symlink(path, folder / "link");
    EXPECT_EQ(sha256OfFile(fileSystem, folder / "link"), sha256OfFile(fileSystem, path));
}

TEST(FileDigest, ThereIsNoneOfAMissingFile) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    EXPECT_EQ(sha256OfFile(fileSystem, folder / "missing"), std::nullopt);
    EXPECT_EQ(digestOfFile(fileSystem, folder / "missing"), tl::unexpected(DigestFailure::cannotOpen));
}

TEST(FileDigest, ThereIsNoneOfAFileThatMayNotBeRead) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto path = folder.write("file", "abc");
    std::filesystem::permissions(path, std::filesystem::perms::none);
    const ScopedOrdinaryUser user(folder.path());
    EXPECT_EQ(digestOfFile(fileSystem, path), tl::unexpected(DigestFailure::cannotOpen));
    EXPECT_EQ(sha256OfFile(fileSystem, path), std::nullopt);
}

TEST(FileDigest, ThereIsNoneOfAFolder) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    EXPECT_EQ(digestOfFile(fileSystem, folder.path()), tl::unexpected(DigestFailure::cannotRead));
    EXPECT_EQ(sha256OfFile(fileSystem, folder.path()), std::nullopt);
}

TEST(FileDigest, AFailureDoesNotSpoilTheNextOne) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const auto path = folder.write("file", "abc");
    const auto expected = sha256OfFile(fileSystem, path);
    EXPECT_EQ(sha256OfFile(fileSystem, folder.path()), std::nullopt);
    EXPECT_EQ(sha256OfFile(fileSystem, path), expected);
}

}  // namespace
}  // namespace vellomar
