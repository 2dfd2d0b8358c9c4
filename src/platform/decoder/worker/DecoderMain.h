#pragma once

#include <cstddef>
#include <functional>

#include "platform/decoder/worker/RequestLoop.h"

namespace vellomar {

// The whole life of a decoder's process: limits itself to `mostMemory` bytes, has its libraries prepared, gives up what
// it does not need, answers requests as `handlers` do, and ends with the application. Returns only when it could not
// limit itself, with the process's exit code.
int decoderMain(std::size_t mostMemory, const std::function<void()>& prepareLibraries, const RequestHandlers& handlers);

}  // namespace vellomar
