#include <fmt/format.h>

#include "dates/SidecarDate.h"
#include "fuzz/Require.h"
#include "fuzz/Targets.h"
#include "platform/LocalTime.h"

namespace vellomar::fuzz {
namespace {

std::string writtenAsInXmp(const CivilTime& civil) {
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}", civil.year, civil.month, civil.day, civil.hour,
                       civil.minute, civil.second);
}

void run(Input input) {
    const auto text = textOf(input);
    const auto date = ExifUtils::sidecarDate(text);
    if (!date) return;
    require(text.find("xmp:CreateDate") != std::string_view::npos, "a date stands under its name");
    require(text.find(writtenAsInXmp(localCivilTime(*date))) != std::string_view::npos,
            "the date is the wall clock of the text");
}

}  // namespace

const Target kSidecarDate = {"SidecarDateFuzz", InputKind::text, nullptr, run};

}  // namespace vellomar::fuzz
