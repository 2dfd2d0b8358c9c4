#include "platform/LocalTime.h"

#include <cstdint>
#include <ctime>

namespace vellomar {
namespace {

constexpr std::int64_t kSecondsOfDay = 86'400;

std::tm brokenDown(std::int64_t unixTime) {
    const auto time = static_cast<std::time_t>(unixTime);
    std::tm result{};
    localtime_r(&time, &result);
    return result;
}

CivilTime civilOf(const std::tm& time) {
    return {time.tm_year + 1900, time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec};
}

CivilTime civilAt(std::int64_t unixTime) {
    return civilOf(brokenDown(unixTime));
}

std::int64_t offsetAt(std::int64_t unixTime) {
    return brokenDown(unixTime).tm_gmtoff;
}

// The reading as if it were taken in UTC, overflowing fields carried.
std::int64_t asIfUtc(const CivilTime& civil) {
    std::tm time{};
    time.tm_year = civil.year - 1900;
    time.tm_mon = civil.month - 1;
    time.tm_mday = civil.day;
    time.tm_hour = civil.hour;
    time.tm_min = civil.minute;
    time.tm_sec = civil.second;
    return timegm(&time);
}

// The two instants that a reading can mean: by the offset in force the day before, and by that of the day after. They
// are one and the same but near a clock change. mktime() would do for most readings, but what it gives for a doubled
// or a skipped hour depends on the calls before it.
struct Meanings {
    std::int64_t byEarlierOffset;
    std::int64_t byLaterOffset;
};

Meanings meaningsOf(const CivilTime& civil) {
    const std::int64_t utc = asIfUtc(civil);
    return {utc - offsetAt(utc - kSecondsOfDay), utc - offsetAt(utc + kSecondsOfDay)};
}

}  // namespace

CivilTime localCivilTime(Instant instant) {
    return civilAt(wholeUnixSeconds(instant));
}

int localUtcOffset(Instant instant) {
    return static_cast<int>(offsetAt(wholeUnixSeconds(instant)));
}

std::optional<Instant> strictLocalInstant(const CivilTime& civil) {
    // When clocks go back the earlier offset is the larger one, so trying it first finds the first of the two.
    const auto [first, second] = meaningsOf(civil);
    if (civilAt(first) == civil) return instantFromUnixSeconds(first);
    if (second != first && civilAt(second) == civil) return instantFromUnixSeconds(second);
    return std::nullopt;
}

Instant lenientLocalInstant(const CivilTime& civil) {
    if (const auto exact = strictLocalInstant(civil)) return *exact;
    // Carry overflowing fields first: February 31 may exist as March 3 where the offsets of the two days differ.
    const std::int64_t utc = asIfUtc(civil);
    std::tm carried{};
    const auto time = static_cast<std::time_t>(utc);
    gmtime_r(&time, &carried);
    if (const auto exact = strictLocalInstant(civilOf(carried))) return *exact;
    return instantFromUnixSeconds(meaningsOf(civil).byEarlierOffset);
}

void refreshLocalZone() {
    tzset();
}

}  // namespace vellomar
