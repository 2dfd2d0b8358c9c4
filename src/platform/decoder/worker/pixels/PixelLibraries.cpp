#include "platform/decoder/worker/pixels/PixelLibraries.h"

#include <libheif/heif.h>
#include <vips/vips.h>

namespace vellomar {

void preparePixelLibraries() {
    static_cast<void>(heif_init(nullptr));
    static_cast<void>(vips_init("vellomar-decoder"));
    // What was computed for one file is never asked for again.
    vips_cache_set_max(0);
}

}  // namespace vellomar
