#include "platform/WakeUpCall.h"

#include <cerrno>

#include <sys/eventfd.h>

namespace vellomar {

Expected<WakeUpCall> WakeUpCall::make() {
    FileDescriptor event(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!event.isOpen()) return systemFailure(errno);
    return WakeUpCall(std::move(event));
}

void WakeUpCall::call() const {
    // Fails only when it was called 2^64 times.
    static_cast<void>(::eventfd_write(event_.get(), 1));
}

}  // namespace vellomar
