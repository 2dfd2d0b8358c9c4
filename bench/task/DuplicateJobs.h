#pragma once

#include <string>

namespace vellomar::bench {

// Looks for near-duplicates among as many images as `count` says, with hashes that have nothing in common; see Jobs.h.
void findNearDuplicatesAmong(const std::string& count, const std::string& threshold);

}  // namespace vellomar::bench
