#include "platform/decoder/worker/pixels/HeifThumbnail.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

#include "platform/decoder/worker/HeifFile.h"
#include "platform/decoder/worker/pixels/AreaAverage.h"
#include "platform/decoder/worker/pixels/VipsThumbnail.h"

namespace vellomar {
namespace {

using Handle = std::unique_ptr<heif_image_handle, decltype(&heif_image_handle_release)>;
using DecodedImage = std::unique_ptr<heif_image, decltype(&heif_image_release)>;
using DecodingOptions = std::unique_ptr<heif_decoding_options, decltype(&heif_decoding_options_free)>;

// Of a picture that stands upright.
struct Size {
    std::int64_t width = 0;
    std::int64_t height = 0;
};

Size sizeOf(const heif_image_handle* handle) {
    return {heif_image_handle_get_width(handle), heif_image_handle_get_height(handle)};
}

// A thumbnail that lies on its side, or has black bars, shows something else than the picture does. Its own size is
// rounded to whole pixels.
bool hasProportionsOf(Size picture, Size thumbnail) {
    const auto slack = 2 * std::max(picture.width, picture.height);
    return std::abs(thumbnail.width * picture.height - thumbnail.height * picture.width) <= slack;
}

bool isEnoughFor(int size, Size picture, Size thumbnail) {
    const auto shorter = std::min(picture.width, picture.height);
    return std::min(thumbnail.width, thumbnail.height) >= std::min<std::int64_t>(size, shorter);
}

Handle thumbnailWithId(const heif_image_handle* picture, heif_item_id id) {
    heif_image_handle* thumbnail = nullptr;
    if (!succeeded(heif_image_handle_get_thumbnail(picture, id, &thumbnail))) thumbnail = nullptr;
    return {thumbnail, heif_image_handle_release};
}

// The smallest of the picture's thumbnails that does; null if none does.
Handle thumbnailFor(int size, const heif_image_handle* picture) {
    std::vector<heif_item_id> ids(static_cast<std::size_t>(heif_image_handle_get_number_of_thumbnails(picture)));
    const int count = heif_image_handle_get_list_of_thumbnail_IDs(picture, ids.data(), static_cast<int>(ids.size()));
    ids.resize(static_cast<std::size_t>(std::max(count, 0)));
    const auto whole = sizeOf(picture);
    Handle best(nullptr, heif_image_handle_release);
    for (const auto id : ids) {
        auto thumbnail = thumbnailWithId(picture, id);
        if (!thumbnail) continue;
        const auto own = sizeOf(thumbnail.get());
        if (!isEnoughFor(size, whole, own) || !hasProportionsOf(whole, own)) continue;
        if (!best || own.width < sizeOf(best.get()).width) best = std::move(thumbnail);
    }
    return best;
}

bool isDecodable(const heif_image_handle* handle) {
    const int width = heif_image_handle_get_ispe_width(handle);
    const int height = heif_image_handle_get_ispe_height(handle);
    return width > 0 && height > 0 &&
           isDecodableSize(static_cast<std::uint64_t>(width), static_cast<std::uint64_t>(height));
}

DecodedImage decodeUpright(const heif_image_handle* handle, heif_chroma chroma) {
    const DecodingOptions options(heif_decoding_options_alloc(), heif_decoding_options_free);
    options->convert_hdr_to_8bit = 1;
    heif_image* image = nullptr;
    if (!succeeded(heif_decode_image(handle, &image, heif_colorspace_RGB, chroma, options.get()))) image = nullptr;
    return {image, heif_image_release};
}

struct Samples {
    int width = 0;
    int height = 0;
    int channels = 0;
    std::vector<std::uint8_t> bytes;
};

// Without what the decoder puts between the rows.
std::optional<Samples> samplesIn(const heif_image* image, int channels) {
    int stride = 0;
    const auto* start = heif_image_get_plane_readonly(image, heif_channel_interleaved, &stride);
    Samples samples{heif_image_get_width(image, heif_channel_interleaved),
                    heif_image_get_height(image, heif_channel_interleaved),
                    channels,
                    {}};
    const auto rowLength = samples.width * channels;
    if (start == nullptr || samples.width <= 0 || samples.height <= 0 || stride < rowLength ||
        !isDecodableSize(static_cast<std::uint64_t>(samples.width), static_cast<std::uint64_t>(samples.height)))
        return std::nullopt;
    samples.bytes.reserve(static_cast<std::size_t>(rowLength) * static_cast<std::size_t>(samples.height));
    for (std::ptrdiff_t row = 0; row < samples.height; ++row) {
        const auto* from = start + row * stride;
        samples.bytes.insert(samples.bytes.end(), from, from + rowLength);
    }
    return samples;
}

std::optional<Samples> samplesOf(const heif_image_handle* handle) {
    const bool isClear = heif_image_handle_has_alpha_channel(handle) != 0;
    const auto image = decodeUpright(handle, isClear ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB);
    return image ? samplesIn(image.get(), isClear ? 4 : 3) : std::nullopt;
}

void copyProfile(const heif_image_handle* from, VipsImage* to) {
    constexpr std::size_t kMostBytes = 4U << 20U;
    const auto size = heif_image_handle_get_raw_color_profile_size(from);
    if (size == 0 || size > kMostBytes) return;
    std::vector<std::byte> profile(size);
    if (!succeeded(heif_image_handle_get_raw_color_profile(from, profile.data()))) return;
    vips_image_set_blob_copy(to, VIPS_META_ICC_NAME, profile.data(), profile.size());
}

std::optional<RgbPicture> thumbnailOf(const heif_image_handle* decoded, const heif_image_handle* picture, int size) {
    if (!isDecodable(decoded)) return std::nullopt;
    const auto samples = samplesOf(decoded);
    if (!samples) return std::nullopt;
    const auto image = imageOverSamples(samples->bytes, samples->width, samples->height, samples->channels);
    if (!image) return std::nullopt;
    copyProfile(picture, image.get());
    return thumbnailOfImage(image.get(), size);
}

}  // namespace

std::optional<RgbPicture> thumbnailOfHeif(std::span<const std::byte> file, int size) {
    const HeifFile heif(file);
    const auto* picture = heif.firstImage();
    if (picture == nullptr) return std::nullopt;
    if (const auto small = thumbnailFor(size, picture))
        if (auto thumbnail = thumbnailOf(small.get(), picture, size)) return thumbnail;
    return thumbnailOf(picture, picture, size);
}

}  // namespace vellomar
