#include <algorithm>
#include <chrono>
#include <string>

#include "dates/ExifDate.h"
#include "fuzz/Require.h"
#include "fuzz/Targets.h"

namespace vellomar::fuzz {
namespace {

constexpr std::string_view kShape = "dddd:dd:dd dd:dd:dd";

bool fits(char c, char place) {
    if (place == 'd') return c >= '0' && c <= '9';
    return c == place || (place == ':' && c == '-');
}

// Of such a text there is no room for a zone, so that it can only have been read as a local date.
bool hasShapeOfLocalDate(std::string_view text) {
    return std::ranges::equal(text, kShape, fits);
}

void requireThatNothingBehindCounts(const std::string& date, std::string_view rest) {
    const auto read = ExifUtils::parseExifDate(date);
    for (const auto behind : {rest, std::string_view("Z"), std::string_view("+02:00"), std::string_view("\0", 1)})
        require(ExifUtils::parseExifDate(date + std::string(behind)) == read, "nothing behind a local date counts");
}

void run(Input input) {
    const auto text = textOf(input);
    const auto date = ExifUtils::parseExifDate(text);
    require(!date || date->time_since_epoch() % std::chrono::seconds(1) == std::chrono::microseconds(0),
            "a date is told in whole seconds");
    const std::string head(text.substr(0, kShape.size()));
    if (hasShapeOfLocalDate(head) && ExifUtils::parseExifDate(head))
        requireThatNothingBehindCounts(head, text.substr(kShape.size()));
}

}  // namespace

const Target kExifDate = {"ExifDateFuzz", InputKind::text, nullptr, run};

}  // namespace vellomar::fuzz
