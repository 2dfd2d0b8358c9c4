#include <gtest/gtest.h>

#include "dates/LocalInstant.h"
#include "dates/VideoDate.h"
#include "support/ScopedTimeZone.h"

namespace vellomar::ExifUtils {
namespace {

using ::vellomar::testing::local;
using ::vellomar::testing::ScopedTimeZone;

constexpr auto kIsoText = "2021-03-04T05:06:07+0000";
constexpr Instant kIsoDate = instantFromUnixSeconds(std::int64_t{1'614'834'367});

VideoMetadata createdAt(std::string text) {
    VideoMetadata metadata;
    metadata.creationDate = std::move(text);
    return metadata;
}

VideoMetadata withFormats(std::vector<VideoMetadataFormat> formats) {
    VideoMetadata metadata;
    metadata.formats = std::move(formats);
    return metadata;
}

TEST(VideoDate, TheCreationItemCounts) {
    EXPECT_EQ(videoDate(createdAt(kIsoText)), (DateCandidate{kIsoDate, "AVFoundation commonCreationDate", 75}));
    auto metadata = createdAt(kIsoText);
    metadata.formats = {{"mdta", {"2022-03-04T05:06:07+0000"}}};
    EXPECT_EQ(videoDate(metadata), (DateCandidate{kIsoDate, "AVFoundation commonCreationDate", 75}));
}

TEST(VideoDate, WithoutItAnyItemOfAnyFormatCounts) {
    const DateCandidate expected{kIsoDate, "AVFoundation com.apple.quicktime.mdta", 70};
    const VideoMetadataFormat format{"com.apple.quicktime.mdta", {kIsoText}};
    EXPECT_EQ(videoDate(withFormats({format})), expected);
    for (const char* unreadable : {"", "yesterday", "\xFF", "2021-02-31T05:06:07+0000"}) {
        SCOPED_TRACE(unreadable);
        auto metadata = createdAt(unreadable);
        EXPECT_EQ(videoDate(metadata), std::nullopt);
        metadata.formats = {format};
        EXPECT_EQ(videoDate(metadata), expected);
    }
}

TEST(VideoDate, FormatsAndTheirTextsComeInTheirOrder) {
    const std::string later = "2022-03-04T05:06:07+0000";
    struct Case {
        VideoMetadata metadata;
        std::string source;
    };
    const Case cases[] = {
        {withFormats({{"a", {kIsoText}}, {"b", {later}}}), "AVFoundation a"},
        {withFormats({{"a", {kIsoText, later}}}), "AVFoundation a"},
        {withFormats({{"a", {"Canon", "", "\xFF", kIsoText, later}}}), "AVFoundation a"},
        {withFormats({{"a", {"Canon"}}, {"b", {}}, {"c", {kIsoText}}}), "AVFoundation c"},
        {withFormats({{"", {kIsoText}}}), "AVFoundation "},
        {withFormats({{"\xFF", {kIsoText}}}), "AVFoundation \xFF"},
    };
    for (const auto& [metadata, source] : cases) {
        SCOPED_TRACE(source);
        EXPECT_EQ(videoDate(metadata), (DateCandidate{kIsoDate, source, 70}));
    }
}

TEST(VideoDate, ReadsCameraTextsLocallyAndIsoTextsByTheirZone) {
    for (const char* zone : {"UTC", "Europe/Berlin", "America/Los_Angeles"}) {
        SCOPED_TRACE(zone);
        const ScopedTimeZone scope(zone);
        struct Case {
            std::string text;
            Instant date;
        };
        const Case cases[] = {
            {"2021:03:04 05:06:07", local(2021, 3, 4, 5, 6, 7)},
            {"2021-03-04 05:06:07+0200", local(2021, 3, 4, 5, 6, 7)},
            {"2021-03-04T05:06:07+0000", kIsoDate},
            {"2021-03-04T05:06:07Z", kIsoDate},
            {"2021-03-04T07:06:07+02:00", kIsoDate},
            {"2021-03-03T21:06:07-0800", kIsoDate},
        };
        for (const auto& [text, date] : cases) {
            SCOPED_TRACE(text);
            EXPECT_EQ(videoDate(createdAt(text)), (DateCandidate{date, "AVFoundation commonCreationDate", 75}));
            EXPECT_EQ(videoDate(withFormats({{"a", {text}}})), (DateCandidate{date, "AVFoundation a", 70}));
        }
    }
}

TEST(VideoDate, OtherTextsAreNoDates) {
    EXPECT_EQ(videoDate({}), std::nullopt);
    for (std::string text : {"2021-03-04T05:06:07", "2021-03-04", "2021", "2021-03-04T05:06:07.000000Z",
                             "2021-03-04T24:00:00+0000", "2021-03-04T05:06:07+0000 ", "Lavf59.27.100"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(videoDate(createdAt(text)), std::nullopt);
        EXPECT_EQ(videoDate(withFormats({{"a", {text}}})), std::nullopt);
    }
    EXPECT_EQ(videoDate(createdAt(std::string(8'000'000, '1'))), std::nullopt);
}

}  // namespace
}  // namespace vellomar::ExifUtils
