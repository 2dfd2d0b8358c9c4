#include "run/Report.h"

#include <algorithm>

#include <fmt/format.h>

#include "platform/BytesJson.h"
#include "run/Comparison.h"

namespace vellomar::bench {
namespace {

std::string figure(double value, const std::string& unit) {
    return fmt::format("{:.2f} {}", value, unit);
}

std::string_view verdict(const Result& result) {
    return result.isMet() ? "PASS" : "FAIL";
}

std::string_view word(Direction direction) {
    return direction == Direction::atMost ? "at most" : "at least";
}

std::string row(const Result& result) {
    const auto [least, most] = std::ranges::minmax(result.rounds);
    return fmt::format("{}  {:<20} {:>15}   {:<8} {:>15}   {} (rounds {:.2f} to {:.2f})\n", verdict(result),
                       result.name, figure(result.value(), result.unit), word(result.goal.direction),
                       figure(result.goal.limit, result.unit), result.detail, least, most);
}

}  // namespace

double Result::value() const {
    return medianOf(rounds);
}

bool Result::isMet() const {
    return goal.direction == Direction::atMost ? value() <= goal.limit : value() >= goal.limit;
}

std::string tableText(const std::vector<Result>& results) {
    auto text = fmt::format("      {:<20} {:>15}   {:<24}   {}\n", "benchmark", "median", "goal", "detail");
    for (const auto& result : results)
        text += row(result);
    return text;
}

std::string jsonOf(const std::vector<Result>& results) {
    auto list = Json::array();
    for (const auto& result : results)
        list.push_back({{"name", result.name},
                        {"median", result.value()},
                        {"rounds", result.rounds},
                        {"unit", result.unit},
                        {"goal", result.goal.limit},
                        {"goalIs", word(result.goal.direction)},
                        {"isMet", result.isMet()},
                        {"detail", result.detail}});
    return jsonText(list, 2);
}

}  // namespace vellomar::bench
