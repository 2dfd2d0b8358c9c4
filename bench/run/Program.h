#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vellomar::bench {

// What a measured program said of itself.
struct Measurement {
    double seconds = 0;
    double cpuSeconds = 0;
    std::uint64_t files = 0;
    std::uint64_t bytes = 0;
    std::uint64_t peakMemory = 0;  // bytes
};

// Runs the measured program `name`, which stands beside this one, and waits for it. Throws std::runtime_error if it
// cannot be started, fails or does not answer as it must.
[[nodiscard]] Measurement runProgram(const std::string& name, const std::vector<std::string>& arguments);

}  // namespace vellomar::bench
