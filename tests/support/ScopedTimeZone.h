#pragma once

#include <optional>
#include <string>

namespace vellomar::testing {

// Sets the process's zone until the end of the scope. Not while another thread reads the time.
class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const char* zone);
    ~ScopedTimeZone();
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

private:
    std::optional<std::string> before_;
};

}  // namespace vellomar::testing
