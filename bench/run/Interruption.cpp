#include "run/Interruption.h"

#include <csignal>
#include <stdexcept>

namespace vellomar::bench {
namespace {

volatile std::sig_atomic_t wantsToStop = 0;

void remember(int /*signal*/) {
    wantsToStop = 1;
}

}  // namespace

void catchInterruptions() {
    std::signal(SIGINT, &remember);
    std::signal(SIGTERM, &remember);
}

void stopIfInterrupted() {
    if (wantsToStop != 0) throw std::runtime_error("interrupted");
}

}  // namespace vellomar::bench
