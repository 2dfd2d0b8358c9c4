#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "platform/Instant.h"

namespace vellomar {

// Reads dates of one form, in English and whatever the user's language. It is for texts that carry their zone; one
// without would be taken in UTC, never in the zone of the machine. Made once (usually as a static constant), then used
// from any number of threads.
class StrictDateFormatter {
public:
    // `icuPattern` in the letters of Unicode's date patterns, e.g. "yyyy-MM-dd HH:mm:ssZ". One with letters that mean
    // nothing there fits no text.
    explicit StrictDateFormatter(std::string_view icuPattern);
    ~StrictDateFormatter();
    StrictDateFormatter(const StrictDateFormatter&) = delete;
    StrictDateFormatter& operator=(const StrictDateFormatter&) = delete;

    // The instant that `utf8Text` names; the whole of it must fit the pattern. Nothing for a date or a time that does
    // not exist (February 31, hour 24), for a text that is not UTF-8, and for one of more than 256 bytes.
    //
    // A zone may stand in any of the usual spellings, whichever of them the pattern's letters are for: "Z", "+0200",
    // "+02:00", "+02", "GMT+2". Blanks before a field are passed over, those at the end are not. Years are taken as
    // they stand: "23" is the year 23.
    [[nodiscard]] std::optional<Instant> parse(std::string_view utf8Text) const;

private:
    struct Format;
    std::unique_ptr<const Format> format_;
};

}  // namespace vellomar
