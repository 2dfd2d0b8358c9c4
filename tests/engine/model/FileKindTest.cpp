#include <algorithm>
#include <cctype>
#include <string>

#include <gtest/gtest.h>

#include "engine/model/FileKind.h"

namespace vellomar {
namespace {

constexpr std::string_view kImages[] = {"jpg", "jpeg", "png", "tif", "tiff", "bmp", "webp", "heic", "heif", "avif",
                                        "arw", "cr2",  "cr3", "nef", "nrw",  "orf", "raf",  "rw2",  "dng",  "raw",
                                        "rwl", "srw",  "x3f", "3fr", "mef",  "mos", "mrw",  "ptx",  "pef",  "srf",
                                        "sr2", "kdc",  "dcr", "erf", "fff",  "iiq", "rwz"};
constexpr std::string_view kVideos[] = {"mp4", "mov", "avi", "mkv",  "mts", "m2ts", "3gp",
                                        "m4v", "wmv", "flv", "webm", "mpg", "mpeg"};
constexpr std::string_view kRaws[] = {"arw", "cr2", "cr3", "nef", "orf", "raf",
                                      "rw2", "dng", "raw", "rwl", "srw", "x3f"};
constexpr std::string_view kJpegs[] = {"jpg", "jpeg"};
constexpr std::string_view kSidecars[] = {"xmp", "pp3", "dop", "cos", "on1"};

std::string upper(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return result;
}

std::string capitalized(std::string_view text) {
    return upper(text.substr(0, 1)) + std::string(text.substr(1));
}

template <std::size_t count>
void expectKind(const std::string_view (&extensions)[count], FileKind kind) {
    for (const auto extension : extensions) {
        SCOPED_TRACE(extension);
        EXPECT_EQ(fileKindOf("/a/b." + std::string(extension)), kind);
        EXPECT_EQ(fileKindOf("/a/b." + upper(extension)), kind);
        EXPECT_EQ(fileKindOf("/a/b." + capitalized(extension)), kind);
        EXPECT_EQ(fileKindOf("/a/b.x." + std::string(extension)), kind);
        EXPECT_EQ(fileKindOfExtension(extension), kind);
    }
}

template <std::size_t count>
bool holds(const std::string_view (&extensions)[count], std::string_view extension) {
    return std::ranges::find(extensions, extension) != std::end(extensions);
}

TEST(FileKind, EveryImageExtensionIsAnImage) {
    EXPECT_EQ(std::size(kImages), 37U);
    expectKind(kImages, FileKind::image);
}

TEST(FileKind, EveryVideoExtensionIsAVideo) {
    EXPECT_EQ(std::size(kVideos), 13U);
    expectKind(kVideos, FileKind::video);
}

TEST(FileKind, EverythingElseIsOther) {
    for (const char* path : {"", "/", "/a/noext", "/a/jpg", "/a/.jpg", "/a/b.", "/a/b.jpg2", "/a/b.jp", "/a/b.xmp",
                             "/a/b.gif", "/a/b.psd", "/a/b.mp3", "/a/b.jpg ", "/a.jpg/b", "/a/b.\xFF", "/a/b.jpg.txt"})
        EXPECT_EQ(fileKindOf(path), FileKind::other) << path;
}

TEST(FileKind, ALookalikeOfAnotherScriptIsNoExtension) {
    EXPECT_EQ(fileKindOf("/a/b.KDC"), FileKind::image);
    EXPECT_EQ(fileKindOf("/a/b.\xE2\x84\xAA"
                         "dc"),
              FileKind::image);                         // the Kelvin sign is k in lower case
    EXPECT_EQ(fileKindOf("/a/b.jр"), FileKind::other);  // a Cyrillic letter
}

TEST(FileKind, HasAName) {
    EXPECT_EQ(nameOf(FileKind::image), "image");
    EXPECT_EQ(nameOf(FileKind::video), "video");
    EXPECT_EQ(nameOf(FileKind::other), "other");
}

TEST(FileKind, PairsAreMadeOfTheseExtensionsAlone) {
    EXPECT_EQ(std::size(kRaws), 12U);
    const auto expectMembership = [](std::string_view extension) {
        SCOPED_TRACE(extension);
        EXPECT_EQ(isRawExtension(extension), holds(kRaws, extension));
        EXPECT_EQ(isJpegExtension(extension), holds(kJpegs, extension));
        EXPECT_EQ(isSidecarExtension(extension), holds(kSidecars, extension));
    };
    std::ranges::for_each(kImages, expectMembership);
    std::ranges::for_each(kVideos, expectMembership);
    std::ranges::for_each(kSidecars, expectMembership);
    for (const std::string_view extension : {"", "JPG", "ARW", "aae", "thm", "on2", "jpe"})
        expectMembership(extension);
}

}  // namespace
}  // namespace vellomar
