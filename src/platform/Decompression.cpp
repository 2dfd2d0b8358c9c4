#include "platform/Decompression.h"

#include <zlib.h>

namespace vellomar {

std::optional<std::string> decompressed(std::string_view bytes, std::size_t size) {
    // One more than wanted: a longer content would otherwise be cut, and an empty one has no place to go.
    std::string content(size + 1, '\0');
    uLongf written = content.size();
    uLong read = bytes.size();
    const int result = uncompress2(reinterpret_cast<Bytef*>(content.data()), &written,
                                   reinterpret_cast<const Bytef*>(bytes.data()), &read);
    if (result != Z_OK || written != size || read != bytes.size()) return std::nullopt;
    content.resize(size);
    return content;
}

}  // namespace vellomar
