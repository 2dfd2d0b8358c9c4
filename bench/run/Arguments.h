#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vellomar::bench {

struct Arguments {
    std::vector<std::string> only;  // names of benchmarks; all of them when empty
    std::size_t files = 300'000;    // of the large library; all other corpora shrink or grow with it
    int rounds = 5;                 // at least 1
    bool isStrict = false;          // a missed goal is a failure of the program
    bool keepsFolders = false;      // the corpora stay
    bool wantsJson = false;         // instead of the table
    bool wantsHelp = false;
};

// Throws std::runtime_error for what it does not understand.
[[nodiscard]] Arguments argumentsFrom(const std::vector<std::string>& words);

}  // namespace vellomar::bench
