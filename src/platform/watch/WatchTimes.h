#pragma once

#include <chrono>

namespace vellomar {

// How often a watched folder is looked at, and how long events are gathered.
struct WatchTimes {
    std::chrono::milliseconds latency = std::chrono::seconds(2);    // from the first event to the delivery
    std::chrono::milliseconds lookOver = std::chrono::seconds(30);  // between two looks at all that is in it
    std::chrono::milliseconds presence = std::chrono::seconds(1);   // between two looks whether it is there
};

}  // namespace vellomar
