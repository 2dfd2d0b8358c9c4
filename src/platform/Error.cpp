#include "platform/Error.h"

#include <cerrno>
#include <cstring>

namespace vellomar {

Error systemError(int errnoValue) {
    const char* text = strerrordesc_np(errnoValue);
    return {std::string(kPosixDomain), errnoValue, text != nullptr ? text : "Unknown error"};
}

tl::unexpected<Error> systemFailure(int errnoValue) {
    return tl::unexpected(systemError(errnoValue));
}

Expected<void> successOrFailure(int result) {
    if (result != 0) return systemFailure(errno);
    return {};
}

bool isSystemError(const Error& error, int errnoValue) {
    return error.code == errnoValue && error.domain == kPosixDomain;
}

}  // namespace vellomar
