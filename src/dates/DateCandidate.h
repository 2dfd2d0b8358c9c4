#pragma once

#include <string>

#include "platform/Instant.h"

namespace vellomar {

// One dated clue to when a file was shot, and how far it can be trusted.
struct DateCandidate {
    Instant date;        // a wall clock read from a file was taken in the local zone
    std::string source;  // label shown to the user and compared by prefix, e.g. "Filename-WhatsApp"
    int score = 0;       // higher is better, at most 100; 60 and above may move an original

    bool operator==(const DateCandidate&) const = default;
};

// From this score on a date is strong: reliable enough to move an original.
inline constexpr int kStrongScore = 60;

}  // namespace vellomar
