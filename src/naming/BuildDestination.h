#pragma once

#include <optional>
#include <string>

#include "engine/model/Options.h"
#include "platform/Instant.h"

namespace vellomar {

// Where a file of the library goes, below the folder `dest`. Text work alone: whether something stands there is for
// the conflict policy to settle. For IMG_4821.JPG of 2023-08-14 14:30:21 and the event "Vacation":
//
//   original      2023/08/Vacation/IMG_4821.JPG
//   recommended   2023/08 - August/Vacation/2023-08-14_143021_IMG_4821.jpg
//   cleanDate     2023/August/Vacation/20230814_143021.jpg
//   archival      2023/2023-08-14/2023-08-14_143021.jpg       (never an event)
//   custom        what Options::customFormat says; see NamingTemplate
//
// cleanDate and archival drop the source's name, so files of one second meet. Only `original` keeps an extension in
// capitals. The date is written in local time and its month in English. An absent or empty event leaves no folder.
//
// `source` is the file's path, `dest` an absolute one with or without a slash at its end. No character of a name is
// cleaned: a "/" in the event nests folders, and bytes that are not UTF-8 go through. No slash is ever doubled. A
// template of blanks alone gives `dest` itself. Never fails; any thread.
[[nodiscard]] std::string buildDestination(const std::string& source, Instant date,
                                           const std::optional<std::string>& event, const std::string& dest,
                                           const Options& options);

}  // namespace vellomar
