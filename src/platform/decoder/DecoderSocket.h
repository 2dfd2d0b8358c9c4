#pragma once

namespace vellomar {

// The number under which the decoder's process finds its end of the connection.
inline constexpr int kDecoderSocket = 3;

}  // namespace vellomar
