#pragma once

#include <string>

namespace vellomar::bench {

// Makes a PlaceFinder as many times as `count` says; see Jobs.h.
void loadPlaces(const std::string& count);

// Finds the places of as many points as `count` says, all over Europe, where places are dense; see Jobs.h.
void findPlaces(const std::string& count);

}  // namespace vellomar::bench
