#include "platform/decoder/worker/DecoderMain.h"

#include <unistd.h>

#include "platform/decoder/DecoderSocket.h"
#include "platform/decoder/worker/Confinement.h"

namespace vellomar {

int decoderMain(std::size_t mostMemory, const std::function<void()>& prepareLibraries,
                const RequestHandlers& handlers) {
    constexpr int kNoLimits = 1;
    if (!limitResources(mostMemory)) return kNoLimits;
    prepareLibraries();
    // A kernel without filters is no reason to read no photos: the process still stands apart, without privileges.
    static_cast<void>(confine());
    serveRequests(kDecoderSocket, handlers);
    // Nothing here needs an orderly end, and destructors of libraries may want what is not allowed any more.
    _exit(0);
}

}  // namespace vellomar
