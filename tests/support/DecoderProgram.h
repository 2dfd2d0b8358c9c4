#pragma once

#include <string>

namespace vellomar::testing {

// The paths of the decoders' executables, as they were built.
[[nodiscard]] inline std::string decoderProgram() {
    return DECODER_PROGRAM;
}
[[nodiscard]] inline std::string pixelDecoderProgram() {
    return PIXEL_DECODER_PROGRAM;
}

}  // namespace vellomar::testing
