#pragma once

#include <stdexcept>

namespace vellomar::fuzz {

// Fails when a property does not hold; `property` says what should have been true. Nothing in a fuzz program catches
// the exception, so that the process ends and the input is kept.
inline void require(bool holds, const char* property) {
    if (!holds) throw std::logic_error(property);
}

}  // namespace vellomar::fuzz
