#include "platform/Error.h"

#include <cstring>

namespace vellomar {

Error systemError(int errnoValue) {
    const char* text = strerrordesc_np(errnoValue);
    return {std::string(kPosixDomain), errnoValue, text != nullptr ? text : "Unknown error"};
}

tl::unexpected<Error> systemFailure(int errnoValue) {
    return tl::unexpected(systemError(errnoValue));
}

bool isSystemError(const Error& error, int errnoValue) {
    return error.code == errnoValue && error.domain == kPosixDomain;
}

}  // namespace vellomar
