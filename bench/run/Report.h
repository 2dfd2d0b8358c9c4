// What the benchmarks found, against what we want.
#pragma once

#include <string>
#include <vector>

namespace vellomar::bench {

enum class Direction { atMost, atLeast };

struct Goal {
    Direction direction = Direction::atMost;
    double limit = 0;
};

struct Result {
    std::string name;
    std::vector<double> rounds;  // the figure of each round; their median is what counts
    std::string unit;            // of the figure and of the goal
    Goal goal;
    std::string detail;  // what the figure was made from

    [[nodiscard]] double value() const;
    [[nodiscard]] bool isMet() const;
};

// One row a result, for people.
[[nodiscard]] std::string tableText(const std::vector<Result>& results);

// A list of objects, for programs.
[[nodiscard]] std::string jsonOf(const std::vector<Result>& results);

}  // namespace vellomar::bench
