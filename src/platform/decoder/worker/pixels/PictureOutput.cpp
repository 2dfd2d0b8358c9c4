#include "platform/decoder/worker/pixels/PictureOutput.h"

#include <unistd.h>

#include "platform/Uninterrupted.h"

namespace vellomar {

bool writeAll(int output, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const auto written = uninterrupted([&] { return ::write(output, bytes.data(), bytes.size()); });
        if (written <= 0) return false;
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

}  // namespace vellomar
