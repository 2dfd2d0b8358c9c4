#include "platform/StrictDateFormatter.h"

#include <chrono>
#include <cstdint>

#include <unicode/calendar.h>
#include <unicode/locid.h>
#include <unicode/parsepos.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/udat.h>
#include <unicode/unistr.h>

#include "platform/Text.h"

namespace vellomar {
namespace {

// ICU takes time by the square of a number's digits, and a text from a file may be nothing but digits.
constexpr std::size_t kLongestDate = 256;

icu::UnicodeString unicodeOf(std::string_view utf8) {
    return icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<std::int32_t>(utf8.size())));
}

// Null when ICU lacks the data for it.
std::unique_ptr<const icu::SimpleDateFormat> strictFormat(std::string_view pattern) {
    UErrorCode status = U_ZERO_ERROR;
    auto format = std::make_unique<icu::SimpleDateFormat>(unicodeOf(pattern), icu::Locale("en", "US", "POSIX"), status);
    if (U_FAILURE(status)) return nullptr;
    format->setLenient(false);
    // Or "MM" would take the name of a month as well.
    format->setBooleanAttribute(UDAT_PARSE_MULTIPLE_PATTERNS_FOR_MATCH, false, status);
    format->adoptTimeZone(icu::TimeZone::getGMT()->clone());
    return format;
}

// What `calendar` was set to. Nothing when its fields do not go together. ICU's years end long before an Instant's.
std::optional<Instant> instantOf(const icu::Calendar& calendar) {
    UErrorCode status = U_ZERO_ERROR;
    const UDate milliseconds = calendar.getTime(status);
    if (U_FAILURE(status)) return std::nullopt;
    return Instant(std::chrono::milliseconds(static_cast<std::int64_t>(milliseconds)));
}

}  // namespace

struct StrictDateFormatter::Format {
    std::unique_ptr<const icu::SimpleDateFormat> icuFormat;
};

StrictDateFormatter::StrictDateFormatter(std::string_view icuPattern)
    : format_(std::make_unique<const Format>(Format{strictFormat(icuPattern)})) {}

StrictDateFormatter::~StrictDateFormatter() = default;

std::optional<Instant> StrictDateFormatter::parse(std::string_view utf8Text) const {
    const auto* format = format_->icuFormat.get();
    if (format == nullptr || utf8Text.size() > kLongestDate || !isUtf8(utf8Text)) return std::nullopt;
    const auto text = unicodeOf(utf8Text);
    // Reading writes into a calendar, so each call has its own.
    const std::unique_ptr<icu::Calendar> calendar(format->getCalendar()->clone());
    calendar->clear();
    icu::ParsePosition position(0);
    format->parse(text, *calendar, position);
    const bool isFit = position.getErrorIndex() < 0 && position.getIndex() == text.length();
    return isFit ? instantOf(*calendar) : std::nullopt;
}

}  // namespace vellomar
