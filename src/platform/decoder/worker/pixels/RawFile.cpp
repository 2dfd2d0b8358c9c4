#include "platform/decoder/worker/pixels/RawFile.h"

#include "platform/decoder/worker/pixels/AreaAverage.h"

namespace vellomar {

bool unpackAllPixels(LibRaw& raw, const RawBytes& bytes) {
    const auto& sizes = raw.imgdata.sizes;
    return isDecodableSize(sizes.raw_width, sizes.raw_height) && raw.unpack() == LIBRAW_SUCCESS &&
           raw.error_count() == 0 && !bytes.wereCutShort();
}

}  // namespace vellomar
