#pragma once

#include <cerrno>

namespace vellomar {

// What a kernel call gives, made again for as long as a signal interrupts it; negative with errno set if it failed.
template <typename Call>
auto uninterrupted(Call call) {
    while (true) {
        const auto result = call();
        if (result >= 0 || errno != EINTR) return result;
    }
}

}  // namespace vellomar
