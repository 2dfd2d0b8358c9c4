// What the plan's views take out of a row beyond what stands in it. Pure; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/model/PlanRow.h"

namespace vellomar {

// Seconds since 1970 of "2023-08-14 14:30:21" in local time; nothing for a text of any other form, and for a reading
// that the wall clock never shows.
[[nodiscard]] std::optional<std::int64_t> eventTime(std::string_view resolvedDate);

// Whether a new event begins between two neighbours of a list: the later is more than four hours after the earlier.
// Never where either has no time, nor backwards.
[[nodiscard]] bool beginsEvent(std::optional<std::int64_t> before, std::optional<std::int64_t> time);

// The values by which rows are filtered; empty where a row has none.
[[nodiscard]] std::string_view yearOf(const PlanRow& row);    // the first four characters of its date, or fewer
[[nodiscard]] std::string_view folderOf(const PlanRow& row);  // the one in which the file will lie

// The values that are offered as filters: not those that say nothing.
[[nodiscard]] std::string_view offeredCamera(const PlanRow& row);  // no "—"
[[nodiscard]] std::string_view offeredYear(const PlanRow& row);    // of four characters
[[nodiscard]] std::string_view offeredFolder(const PlanRow& row);  // no month's folder, nor one at a path's beginning

// What a search looks through: source, destination, camera and date, in lower case, each ended by a NUL so that nothing
// is found across two of them.
[[nodiscard]] std::string searchableText(const PlanRow& row);

}  // namespace vellomar
