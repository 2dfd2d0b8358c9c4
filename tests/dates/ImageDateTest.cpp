#include <gtest/gtest.h>

#include "dates/ImageDate.h"
#include "dates/LocalInstant.h"
#include "support/ScopedTimeZone.h"

namespace vellomar::ExifUtils {
namespace {

using ::vellomar::testing::local;

constexpr auto kOriginal = "2021:01:02 03:04:05";
constexpr auto kDigitized = "2022:01:02 03:04:05";
constexpr auto kChanged = "2023:01:02 03:04:05";

ImageProperties datedProperties(std::optional<std::string> original, std::optional<std::string> digitized,
                                std::optional<std::string> changed) {
    ImageProperties properties;
    properties.dateTimeOriginal = std::move(original);
    properties.dateTimeDigitized = std::move(digitized);
    properties.dateTime = std::move(changed);
    return properties;
}

TEST(ImageDate, TheFirstPropertyThatReadsAsADateCounts) {
    struct Case {
        ImageProperties properties;
        int year;
        std::string reason;
    };
    const Case cases[] = {
        {datedProperties(kOriginal, kDigitized, kChanged), 2021, "EXIF DateTimeOriginal"},
        {datedProperties(kOriginal, std::nullopt, std::nullopt), 2021, "EXIF DateTimeOriginal"},
        {datedProperties(std::nullopt, kDigitized, kChanged), 2022, "EXIF DateTimeDigitized"},
        {datedProperties("", kDigitized, kChanged), 2022, "EXIF DateTimeDigitized"},
        {datedProperties("0000:00:00 00:00:00", kDigitized, kChanged), 2022, "EXIF DateTimeDigitized"},
        {datedProperties(std::nullopt, std::nullopt, kChanged), 2023, "EXIF TIFF DateTime"},
        {datedProperties("\xFF", "    :  :     :  :  ", kChanged), 2023, "EXIF TIFF DateTime"},
    };
    for (const char* zone : {"UTC", "Europe/Berlin", "America/Los_Angeles"}) {
        const ::vellomar::testing::ScopedTimeZone scope(zone);
        for (const auto& [properties, year, reason] : cases) {
            SCOPED_TRACE(std::to_string(year) + " " + reason + " " + zone);
            EXPECT_EQ(imageDate(properties), (ImageEXIFResult{local(year, 1, 2, 3, 4, 5), reason}));
        }
    }
}

TEST(ImageDate, IsAbsentWhenNoPropertyReadsAsADate) {
    EXPECT_EQ(imageDate({}), std::nullopt);
    EXPECT_EQ(imageDate(datedProperties("", "", "")), std::nullopt);
    EXPECT_EQ(imageDate(datedProperties("2021", "\xFF\xFE", "2023/01/02 03:04:05")), std::nullopt);
    ImageProperties camera;
    camera.make = kOriginal;
    camera.model = kOriginal;
    EXPECT_EQ(imageDate(camera), std::nullopt);
}

}  // namespace
}  // namespace vellomar::ExifUtils
