#include <algorithm>
#include <array>

#include "dates/FilenameDates.h"
#include "fuzz/Require.h"
#include "fuzz/Targets.h"
#include "platform/LocalTime.h"

namespace vellomar::fuzz {
namespace {

constexpr Instant kNow = instantFromUnixSeconds(std::int64_t{1'780'000'000});  // May 2026
constexpr Instant kFirstTimestamp = instantFromUnixSeconds(std::int64_t{978'307'200});

struct Shape {
    std::string_view source;
    int score;
};

constexpr std::array<Shape, 6> kShapes = {{
    {"Filename-UnixTS", 72},
    {"Filename-Screenshot", 75},
    {"Filename-WhatsApp", 73},
    {"Filename-Signal", 73},
    {"Filename", 70},
    {"Filename", 60},
}};

bool isOfAShape(const DateCandidate& found) {
    return std::ranges::any_of(
        kShapes, [&](const Shape& shape) { return found.source == shape.source && found.score == shape.score; });
}

bool isMidnight(const CivilTime& civil) {
    return civil.hour == 0 && civil.minute == 0 && civil.second == 0;
}

void requireDate(const DateCandidate& found) {
    const auto civil = localCivilTime(found.date);
    require(civil.year >= 1 && civil.year <= 9999, "a name has four digits for the year");
    require(found.source != "Filename" || (civil.year >= 1900 && civil.year < 2100),
            "a plain date is of this century or the last");
    require(found.score != 60 || isMidnight(civil), "a date without its time means midnight");
    require(found.source != "Filename-UnixTS" || (found.date > kFirstTimestamp && found.date < kNow),
            "a time stamp lies in the past, and not before 2001");
}

void run(Input input) {
    const auto stem = textOf(input);
    const auto found = filenameCandidate(stem, kNow);
    if (!found) return;
    require(isOfAShape(*found), "source and score are those of a shape");
    require(std::ranges::any_of(stem, [](char c) { return c >= '0' && c <= '9'; }), "a date has digits");
    require(found->date.time_since_epoch() % std::chrono::seconds(1) == std::chrono::microseconds(0),
            "a name tells whole seconds");
    requireDate(*found);
}

}  // namespace

const Target kFilenameDates = {"FilenameDatesFuzz", InputKind::text, nullptr, run};

}  // namespace vellomar::fuzz
