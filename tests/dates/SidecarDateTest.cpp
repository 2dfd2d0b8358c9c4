#include <cerrno>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "dates/LocalInstant.h"
#include "dates/SidecarDate.h"
#include "platform/LinuxFileSystem.h"
#include "support/CallRecorder.h"
#include "support/FaultyFileSystem.h"
#include "support/ForwardingFileSystem.h"
#include "support/ScopedTimeZone.h"
#include "support/TemporaryFolder.h"

namespace vellomar::ExifUtils {
namespace {

using ::testing::IsEmpty;
using ::vellomar::testing::CallRecorder;
using ::vellomar::testing::FaultyFileSystem;
using ::vellomar::testing::ForwardingFileSystem;
using ::vellomar::testing::local;
using ::vellomar::testing::ScopedTimeZone;
using ::vellomar::testing::TemporaryFolder;

constexpr const char* kSidecarZones[] = {"UTC", "Europe/Berlin", "America/Los_Angeles", "Asia/Kolkata", "Pacific/Apia"};
constexpr std::string_view kAttribute = R"(xmp:CreateDate="2023-08-14T14:30:21")";
constexpr std::string_view kElement = "<xmp:CreateDate>2023-08-14T14:30:21</xmp:CreateDate>";

TEST(SidecarDate, ReadsTheLocalCreateDate) {
    constexpr std::string_view kTexts[] = {
        kAttribute,
        kElement,
        R"(xmp:CreateDate="2023-08-14T14:30:21+02:00")",
        R"(xmp:CreateDate="2023-08-14T14:30:21Z")",
        R"(xmp:CreateDate="2023-08-14T14:30:21.250")",
        R"(xmp:CreateDate="2023-08-14T14:30:21)",
        "\xEF\xBB\xBF<x:xmpmeta><rdf:Description\n xmp:CreateDate=\"2023-08-14T14:30:21\"\n/></x:xmpmeta>",
        "<x>\n  <xmp:CreateDate>2023-08-14T14:30:21</xmp:CreateDate>\n</x>",
        "\xFF\xC3 xmp:CreateDate=\"2023-08-14T14:30:21\" \xE2",
    };
    for (const char* zone : kSidecarZones) {
        const ScopedTimeZone scope(zone);
        for (const auto text : kTexts) {
            SCOPED_TRACE(std::string(text) + " " + zone);
            EXPECT_EQ(sidecarDate(text), local(2023, 8, 14, 14, 30, 21));
        }
    }
}

TEST(SidecarDate, OtherFormsAreNotFound) {
    constexpr std::string_view kTexts[] = {
        "",
        "<x:xmpmeta/>",
        R"(xmp:CreateDate='2023-08-14T14:30:21')",
        R"(xmp:CreateDate = "2023-08-14T14:30:21")",
        R"(xmp:CreateDate=" 2023-08-14T14:30:21")",
        R"(XMP:CREATEDATE="2023-08-14T14:30:21")",
        R"(xmp:CreateDate="2023-08-14 14:30:21")",
        R"(xmp:CreateDate="2023-08-14T14:30")",
        R"(xmp:CreateDate="2023:08:14T14:30:21")",
        R"(xmp:ModifyDate="2023-08-14T14:30:21")",
        R"(photoshop:DateCreated="2023-08-14T14:30:21")",
        "<xmp:CreateDate>2023-08-14T14:30:21+02:00</xmp:CreateDate>",
        "<xmp:CreateDate> 2023-08-14T14:30:21</xmp:CreateDate>",
        "<xmp:CreateDate>2023-08-14T14:30:21</xmp:CreateDate",
        "<xmp:CreateDate>2023-08-14</xmp:CreateDate>",
        "2023-08-14T14:30:21",
    };
    for (const auto text : kTexts)
        EXPECT_EQ(sidecarDate(text), std::nullopt) << text;
}

TEST(SidecarDate, TheNameOfDateTimeOriginalIsTakenForItsDate) {
    constexpr std::string_view kTexts[] = {
        R"(exif:DateTimeOriginal="2023-08-14T14:30:21")",
        R"(exif:DateTimeOriginal="2023-08-14T14:30:21+02:00")",
        "<exif:DateTimeOriginal>2023-08-14T14:30:21</exif:DateTimeOriginal>",
    };
    for (const auto text : kTexts) {
        SCOPED_TRACE(text);
        EXPECT_EQ(sidecarDate(text), std::nullopt);
        EXPECT_EQ(sidecarDate(std::string(text) + R"( xmp:CreateDate="2020-01-02T03:04:05")"),
                  local(2020, 1, 2, 3, 4, 5));
        EXPECT_EQ(sidecarDate(std::string(text) + "<xmp:CreateDate>2020-01-02T03:04:05</xmp:CreateDate>"),
                  local(2020, 1, 2, 3, 4, 5));
    }
}

TEST(SidecarDate, AnAttributeComesBeforeAnElement) {
    EXPECT_EQ(sidecarDate("<xmp:CreateDate>2020-01-02T03:04:05</xmp:CreateDate>" + std::string(kAttribute)),
              local(2023, 8, 14, 14, 30, 21));
}

TEST(SidecarDate, OfEachFormOnlyTheFirstCounts) {
    EXPECT_EQ(sidecarDate(std::string(kAttribute) + R"( xmp:CreateDate="2020-01-02T03:04:05")"),
              local(2023, 8, 14, 14, 30, 21));
    EXPECT_EQ(sidecarDate(R"(xmp:CreateDate="2023-02-31T00:00:00" )" + std::string(kAttribute)), std::nullopt);
    EXPECT_EQ(sidecarDate("<xmp:CreateDate>2023-02-31T00:00:00</xmp:CreateDate>" + std::string(kElement)),
              std::nullopt);
}

TEST(SidecarDate, AFormThatIsNoDateLeadsToTheNext) {
    for (std::string_view date :
         {"2023-02-31T00:00:00", "2023-02-29T00:00:00", "2023-13-01T00:00:00", "2023-00-01T00:00:00",
          "2023-01-00T00:00:00", "2023-01-01T24:00:00", "2023-01-01T00:60:00", "2023-01-01T00:00:60",
          "0000-00-00T00:00:00", "0000-01-01T00:00:00"}) {
        SCOPED_TRACE(date);
        const auto attribute = "xmp:CreateDate=\"" + std::string(date) + '"';
        EXPECT_EQ(sidecarDate(attribute), std::nullopt);
        EXPECT_EQ(sidecarDate(attribute + std::string(kElement)), local(2023, 8, 14, 14, 30, 21));
    }
}

TEST(SidecarDate, AnHourThatClocksSkipIsNoDate) {
    constexpr std::string_view kSkipped = R"(xmp:CreateDate="2024-03-31T02:30:00")";
    {
        const ScopedTimeZone scope("Europe/Berlin");
        EXPECT_EQ(sidecarDate(kSkipped), std::nullopt);
        EXPECT_EQ(sidecarDate(std::string(kSkipped) + std::string(kElement)), local(2023, 8, 14, 14, 30, 21));
        EXPECT_EQ(sidecarDate(R"(xmp:CreateDate="2024-10-27T02:30:00")"),
                  instantFromUnixSeconds(std::int64_t{1'729'989'000}));
    }
    const ScopedTimeZone scope("America/Los_Angeles");
    EXPECT_EQ(sidecarDate(kSkipped), local(2024, 3, 31, 2, 30));
}

TEST(SidecarDate, FindsTheDateInALongText) {
    const std::string padding(1'000'000, '<');
    EXPECT_EQ(sidecarDate(padding + std::string(kElement) + padding), local(2023, 8, 14, 14, 30, 21));
    EXPECT_EQ(sidecarDate(padding), std::nullopt);
}

// A folder, and the real file system.
class SidecarCandidate : public ::testing::Test {
protected:
    std::optional<DateCandidate> candidateOf(std::string_view name) { return sidecarCandidate(disk, folder / name); }

    // The candidate from `kAttribute`.
    static DateCandidate usualCandidate() { return {local(2023, 8, 14, 14, 30, 21), "XMP Sidecar", 97}; }

    TemporaryFolder folder{TemporaryFolder::Where::inMemory};
    LinuxFileSystem disk;
};

TEST_F(SidecarCandidate, HasTheImagesNameWithAnotherExtension) {
    struct Case {
        std::string_view image;
        std::string_view sidecar;
    };
    constexpr Case kCases[] = {
        {"a/IMG_1.jpg", "a/IMG_1.xmp"},           {"b/IMG_1.JPG", "b/IMG_1.xmp"},
        {"c/IMG_1.edit.CR3", "c/IMG_1.edit.xmp"}, {"d/IMG_1", "d/IMG_1.xmp"},
        {"e/.hidden", "e/.hidden.xmp"},           {"f/IMG_1.", "f/IMG_1..xmp"},
        {"g.jpg/IMG_1", "g.jpg/IMG_1.xmp"},       {"h/Foto \xFF.jpg", "h/Foto \xFF.xmp"},
    };
    for (const auto& [image, sidecar] : kCases) {
        SCOPED_TRACE(image);
        EXPECT_EQ(candidateOf(image), std::nullopt);
        folder.write(sidecar, kAttribute);
        EXPECT_EQ(candidateOf(image), usualCandidate());
    }
}

TEST_F(SidecarCandidate, NoOtherNameIsLookedFor) {
    folder.write("IMG_1.jpg.xmp", kAttribute);
    folder.write("IMG_1.XMP", kAttribute);
    folder.write("img_1.xmp", kAttribute);
    folder.write("IMG_1", kAttribute);
    EXPECT_EQ(candidateOf("IMG_1.jpg"), std::nullopt);
}

TEST_F(SidecarCandidate, IsAbsentWithoutADate) {
    folder.write("empty.xmp", "");
    folder.write("other.xmp", R"(exif:DateTimeOriginal="2023-08-14T14:30:21")");
    EXPECT_EQ(candidateOf("empty.jpg"), std::nullopt);
    EXPECT_EQ(candidateOf("other.jpg"), std::nullopt);
    EXPECT_EQ(candidateOf(std::string(300, 'x') + ".jpg"), std::nullopt);
}

TEST_F(SidecarCandidate, IsReadAsUtf8WithOrWithoutAMark) {
    folder.write("marked.xmp", "\xEF\xBB\xBF" + std::string(kAttribute) + " Été");
    folder.write("latin1.xmp", std::string(kAttribute) + " \xC9t\xE9");
    folder.write("utf16.xmp", std::string_view("\xFF\xFEx\0m\0p\0", 8));
    EXPECT_EQ(candidateOf("marked.jpg"), usualCandidate());
    EXPECT_EQ(candidateOf("latin1.jpg"), std::nullopt);
    EXPECT_EQ(candidateOf("utf16.jpg"), std::nullopt);
}

TEST_F(SidecarCandidate, MayBeALinkToAFile) {
    folder.write("elsewhere", kAttribute);
    ASSERT_EQ(::symlink("elsewhere", (folder / "linked.xmp").c_str()), 0);
    ASSERT_EQ(::symlink("nowhere", (folder / "dangling.xmp").c_str()), 0);
    ASSERT_EQ(::symlink("circle.xmp", (folder / "circle.xmp").c_str()), 0);
    EXPECT_EQ(candidateOf("linked.jpg"), usualCandidate());
    EXPECT_EQ(candidateOf("dangling.jpg"), std::nullopt);
    EXPECT_EQ(candidateOf("circle.jpg"), std::nullopt);
}

TEST_F(SidecarCandidate, WhatIsNoRegularFileIsNotOpened) {
    folder.makeFolder("folder.xmp");
    ASSERT_EQ(::mkfifo((folder / "pipe.xmp").c_str(), S_IRUSR | S_IWUSR), 0);
    ASSERT_EQ(::symlink("/dev/zero", (folder / "device.xmp").c_str()), 0);
    CallRecorder recorder(disk);
    for (std::string_view name : {"folder.jpg", "pipe.jpg", "device.jpg"})
        EXPECT_EQ(sidecarCandidate(recorder, folder / name), std::nullopt) << name;
    EXPECT_THAT(recorder.calls(), IsEmpty());
}

// Tells a size of a test's choice.
class ResizingFileSystem final : public ForwardingFileSystem {
public:
    ResizingFileSystem(FileSystem& real, std::int64_t size) : ForwardingFileSystem(real), size_(size) {}

    [[nodiscard]] Expected<FileStatus> statusFollowingLinks(const std::string& path) override {
        auto status = real().statusFollowingLinks(path);
        if (status) status->size = size_;
        return status;
    }

private:
    std::int64_t size_;
};

TEST_F(SidecarCandidate, AnImmenseFileIsNotOpened) {
    constexpr std::int64_t kLimit = 16 * 1024 * 1024;
    folder.write("a.xmp", kAttribute);
    CallRecorder recorder(disk);
    ResizingFileSystem atLimit(recorder, kLimit);
    EXPECT_EQ(sidecarCandidate(atLimit, folder / "a.jpg"), usualCandidate());
    CallRecorder untouched(disk);
    ResizingFileSystem aboveLimit(untouched, kLimit + 1);
    EXPECT_EQ(sidecarCandidate(aboveLimit, folder / "a.jpg"), std::nullopt);
    EXPECT_THAT(untouched.calls(), IsEmpty());
}

TEST_F(SidecarCandidate, AFileThatIsItsOwnSidecarIsOnlyRead) {
    const auto path = folder.write("a.xmp", kAttribute);
    const auto photo = folder.write("photo.xmp", "\xFF\xD8\xFF\xE1" + std::string(kAttribute));
    EXPECT_EQ(candidateOf("a.xmp"), usualCandidate());
    EXPECT_EQ(candidateOf("photo.xmp"), std::nullopt);
    EXPECT_EQ(testing::contentOf(path), kAttribute);
    EXPECT_EQ(testing::contentOf(photo), "\xFF\xD8\xFF\xE1" + std::string(kAttribute));
}

TEST_F(SidecarCandidate, AFailureAtAnyCallIsAnAbsentDate) {
    folder.write("a.xmp", kAttribute);
    std::size_t call = 1;
    while (true) {
        SCOPED_TRACE(call);
        FaultyFileSystem faulty(disk, call, FaultyFileSystem::Fault::fail, EIO);
        const auto found = sidecarCandidate(faulty, folder / "a.jpg");
        if (!faulty.hasFailed()) break;
        EXPECT_EQ(found, std::nullopt);
        ++call;
    }
    EXPECT_GE(call, 4U);  // status, opening and two reads at least
}

}  // namespace
}  // namespace vellomar::ExifUtils
