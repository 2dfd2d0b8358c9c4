#pragma once

#include <utility>

#include "platform/Error.h"
#include "platform/FileDescriptor.h"

namespace vellomar {

// Ends the waiting of a thread that sleeps in poll(). Any thread may call; it stays called.
class WakeUpCall {
public:
    // Fails where the process has no descriptor left.
    [[nodiscard]] static Expected<WakeUpCall> make();

    void call() const;

    // Readable once it was called.
    [[nodiscard]] int descriptor() const { return event_.get(); }

private:
    explicit WakeUpCall(FileDescriptor event) : event_(std::move(event)) {}

    FileDescriptor event_;
};

}  // namespace vellomar
