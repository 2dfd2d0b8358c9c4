#pragma once

#include <string>
#include <vector>

namespace vellomar {

// Destination paths of one run whose files hold the same bytes.
struct DuplicateGroup {
    std::string canonical;                // the one to keep: the earliest date
    std::vector<std::string> duplicates;  // the others
};

}  // namespace vellomar
