#pragma once

#include <memory>
#include <string>

namespace vellomar {

// Keeps the desktop from sleeping in the middle of work. Any thread.
class SleepInhibitor {
public:
    // The desktop may sleep again once this is destroyed.
    class Hold {
    public:
        virtual ~Hold() = default;
    };

    virtual ~SleepInhibitor() = default;

    // `reason` is what the desktop shows the user. Null where the desktop does not offer this.
    [[nodiscard]] virtual std::unique_ptr<Hold> inhibit(const std::string& reason) = 0;
};

}  // namespace vellomar
