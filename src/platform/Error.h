// Failures as values: what went wrong, in whose terms, and in words for the log.
#pragma once

#include <string>
#include <string_view>

#include <tl/expected.hpp>

namespace vellomar {

// Domain of a failure that the kernel reported; `code` is then its errno.
inline constexpr std::string_view kPosixDomain = "POSIX";

struct Error {
    std::string domain;       // who speaks: kPosixDomain, or the name of a part of this program
    int code = 0;             // what `domain` calls the failure
    std::string description;  // one line for the log, without the path

    bool operator==(const Error&) const = default;
};

// Either a value or the reason why there is none. Expected<void> tells success alone.
template <typename T>
using Expected = tl::expected<T, Error>;

// The failure that the kernel calls `errnoValue`. Its description is English whatever the locale, so that logs of two
// machines compare. Any thread.
[[nodiscard]] Error systemError(int errnoValue);

// As above, ready to be returned from a function that yields an Expected.
[[nodiscard]] tl::unexpected<Error> systemFailure(int errnoValue);

// What a system call that answers 0 or leaves an errno came to. To be called at once behind it. Any thread.
[[nodiscard]] Expected<void> successOrFailure(int result);

// Whether `error` is the kernel's `errnoValue`.
[[nodiscard]] bool isSystemError(const Error& error, int errnoValue);

}  // namespace vellomar
