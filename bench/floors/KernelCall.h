#pragma once

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace vellomar::bench {

// The result of a kernel call. A floor that fails measures nothing, so a failed call ends it.
template <typename Result>
Result orGiveUp(Result result, const char* subject) {
    if (result >= 0) return result;
    std::fprintf(stderr, "%s: %s\n", subject, std::strerror(errno));
    std::exit(EXIT_FAILURE);
}

}  // namespace vellomar::bench
