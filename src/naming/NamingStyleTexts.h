#pragma once

#include <string>
#include <string_view>

#include "engine/model/NamingStyle.h"

namespace vellomar {

// One sentence or two on what a style does, for the options panel. Any thread.
[[nodiscard]] std::string_view descriptionOf(NamingStyle style);

// A file name that gives the feel of a style. Fixed texts, which are not what buildDestination() makes; the custom
// style alone shows its template, rendered for a made-up file. `customFormat` may be empty: the default template then
// stands in. Any thread.
[[nodiscard]] std::string sampleOf(NamingStyle style, std::string_view customFormat);

}  // namespace vellomar
