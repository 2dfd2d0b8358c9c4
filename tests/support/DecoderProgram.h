#pragma once

#include <string>

namespace vellomar::testing {

// The path of the decoder's executable, as it was built.
[[nodiscard]] inline std::string decoderProgram() {
    return DECODER_PROGRAM;
}

}  // namespace vellomar::testing
