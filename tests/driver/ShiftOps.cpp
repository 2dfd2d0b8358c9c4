#include <cmath>
#include <limits>
#include <stdexcept>

#include <fmt/format.h>

#include "driver/Arguments.h"
#include "driver/Ops.h"
#include "tools/DateShift.h"

namespace vellomar::driver {
namespace {

int wholeNumberOf(const Json& arguments, const char* name) {
    const double number = numberOf(arguments, name);
    if (std::trunc(number) != number || number < std::numeric_limits<int>::min() ||
        number > std::numeric_limits<int>::max())
        throw std::invalid_argument(fmt::format("argument '{}' is no whole number in range", name));
    return static_cast<int>(number);
}

DateShift shiftOf(const Json& arguments) {
    return {.days = wholeNumberOf(arguments, "days"), .hours = wholeNumberOf(arguments, "hours")};
}

Json argumentsOfShift(const Json& arguments) {
    const auto list = shiftArguments(shiftOf(arguments), textOf(arguments, "path"));
    return list ? Json(*list) : Json(nullptr);
}

Json descriptionOfShift(const Json& arguments) {
    return shiftDescription(shiftOf(arguments));
}

}  // namespace

void addShiftOps(Ops& ops) {
    ops["shiftArguments"] = argumentsOfShift;
    ops["shiftDescription"] = descriptionOfShift;
}

}  // namespace vellomar::driver
