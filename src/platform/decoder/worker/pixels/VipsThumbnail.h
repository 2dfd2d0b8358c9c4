// Pictures made small by the image library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/decoder/worker/pixels/PictureFormat.h"
#include "platform/decoder/worker/pixels/RgbPicture.h"
#include "platform/decoder/worker/pixels/VipsImage.h"

namespace vellomar {

// How a picture must be turned or mirrored to be upright, by EXIF's numbers from 1 to 8.
inline constexpr int kUpright = 1;

// An image over samples of 8 bits in 1 (grey), 3 (red, green, blue) or 4 channels (and opacity), without padding; null
// if there are fewer than the size needs. The samples must outlive it.
[[nodiscard]] VipsImageOwner imageOverSamples(std::span<const std::uint8_t> samples, int width, int height,
                                              int channels);

// The image with that orientation in place of its own.
[[nodiscard]] VipsImageOwner withOrientation(VipsImageOwner image, int orientation);

// The image turned upright, as it says itself, and made so small, never larger, that its shorter side has `size`
// pixels, of the longer side `size` in the middle. In sRGB; over a dark grey where it is transparent. Nothing if the
// image cannot be read to its end.
[[nodiscard]] std::optional<RgbPicture> thumbnailOfImage(VipsImage* image, int size);

// As above, of the first picture in a JPEG, PNG, TIFF, WebP or GIF file. `orientation` is that of a file that does not
// tell, or that says it is upright.
[[nodiscard]] std::optional<RgbPicture> thumbnailByVips(std::span<const std::byte> file, PictureFormat format, int size,
                                                        int orientation = kUpright);

}  // namespace vellomar
