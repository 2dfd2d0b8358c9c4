#include "platform/decoder/worker/pixels/VipsThumbnail.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace vellomar {
namespace {

constexpr int kChannels = 3;
constexpr double kBehindTransparency = 0x1a;
constexpr const char* kColours = "srgb";  // a profile that is part of the library

// Each format by its own loader: nothing else that the library could load is let in.
VipsImageOwner loadWhole(VipsSource* source, PictureFormat format) {
    constexpr auto kInOrder = VIPS_ACCESS_SEQUENTIAL;
    constexpr auto kFail = VIPS_FAIL_ON_TRUNCATED;
    return imageFrom([&](VipsImage** image) {
        switch (format) {
            case PictureFormat::jpeg:
                return vips_jpegload_source(source, image, "access", kInOrder, "fail_on", kFail, nullptr);
            case PictureFormat::png:
                return vips_pngload_source(source, image, "access", kInOrder, "fail_on", kFail, nullptr);
            case PictureFormat::tiff:
                return vips_tiffload_source(source, image, "access", kInOrder, "fail_on", kFail, nullptr);
            case PictureFormat::webp:
                return vips_webpload_source(source, image, "access", kInOrder, "fail_on", kFail, nullptr);
            case PictureFormat::gif:
                return vips_gifload_source(source, image, "access", kInOrder, "fail_on", kFail, nullptr);
            default: return -1;
        }
    });
}

// By how much the decoder of a JPEG picture can make it smaller, which saves most of the work.
int shrinkWhileLoading(const VipsImage* image, int size) {
    const int shorter = std::min(vips_image_get_width(image), vips_image_get_height(image));
    for (const int shrink : {8, 4, 2})
        if (shorter / shrink >= size) return shrink;
    return 1;
}

VipsImageOwner loadShrunkJpeg(VipsSource* source, int shrink) {
    return imageFrom([&](VipsImage** image) {
        return vips_jpegload_source(source, image, "access", VIPS_ACCESS_SEQUENTIAL, "fail_on", VIPS_FAIL_ON_TRUNCATED,
                                    "shrink", shrink, nullptr);
    });
}

// The image as large as it must be for a thumbnail of that size at least.
VipsImageOwner loadFor(VipsSource* source, PictureFormat format, int size) {
    auto image = loadWhole(source, format);
    if (!image || !hasDecodableSize(image.get())) return nullptr;
    const int shrink = shrinkWhileLoading(image.get(), size);
    if (format != PictureFormat::jpeg || shrink == 1) return image;
    image.reset();
    return loadShrunkJpeg(source, shrink);
}

VipsImageOwner copyOf(VipsImage* image) {
    return imageFrom([&](VipsImage** copy) { return vips_copy(image, copy, nullptr); });
}

bool hasProfile(const VipsImage* image) {
    return vips_image_get_typeof(image, VIPS_META_ICC_NAME) != 0;
}

VipsImageOwner withoutProfile(VipsImage* image) {
    auto copy = copyOf(image);
    if (copy) vips_image_remove(copy.get(), VIPS_META_ICC_NAME);
    return copy;
}

// Making the tables between two profiles takes longer than all else about a small picture.
bool needsProfile(VipsImage* image) {
    return hasProfile(image) || vips_image_get_interpretation(image) == VIPS_INTERPRETATION_CMYK;
}

VipsImageOwner reduced(VipsImage* image, int size) {
    constexpr auto kNeverLarger = VIPS_SIZE_DOWN;
    constexpr auto kMiddle = VIPS_INTERESTING_CENTRE;
    if (!needsProfile(image))
        return imageFrom([&](VipsImage** small) {
            return vips_thumbnail_image(image, small, size, "height", size, "size", kNeverLarger, "crop", kMiddle,
                                        nullptr);
        });
    return imageFrom([&](VipsImage** small) {
        return vips_thumbnail_image(image, small, size, "height", size, "size", kNeverLarger, "crop", kMiddle,
                                    "export_profile", kColours, nullptr);
    });
}

bool isScreenColour(const VipsImage* image) {
    return vips_image_get_interpretation(image) == VIPS_INTERPRETATION_sRGB &&
           vips_image_get_format(image) == VIPS_FORMAT_UCHAR;
}

VipsImageOwner inScreenColours(VipsImageOwner image) {
    if (!image || isScreenColour(image.get())) return image;
    return imageFrom([&](VipsImage** converted) {
        return vips_colourspace(image.get(), converted, VIPS_INTERPRETATION_sRGB, nullptr);
    });
}

struct UnrefDoubles {
    void operator()(VipsArrayDouble* array) const { vips_area_unref(&array->area); }
};

VipsImageOwner overDarkGrey(VipsImageOwner image) {
    if (!image || vips_image_hasalpha(image.get()) == 0) return image;
    const std::unique_ptr<VipsArrayDouble, UnrefDoubles> grey(vips_array_double_newv(1, kBehindTransparency));
    return imageFrom(
        [&](VipsImage** flat) { return vips_flatten(image.get(), flat, "background", grey.get(), nullptr); });
}

struct FreeSamples {
    void operator()(void* samples) const { g_free(samples); }
};

// Everything before this only said what is to be done; here it is.
std::optional<RgbPicture> computed(VipsImage* image) {
    if (vips_image_get_bands(image) != kChannels || vips_image_get_format(image) != VIPS_FORMAT_UCHAR)
        return std::nullopt;
    std::size_t size = 0;
    const std::unique_ptr<void, FreeSamples> memory(vips_image_write_to_memory(image, &size));
    if (!memory) return std::nullopt;
    const std::span<const std::uint8_t> samples(static_cast<const std::uint8_t*>(memory.get()), size);
    return RgbPicture{vips_image_get_width(image), vips_image_get_height(image), {samples.begin(), samples.end()}};
}

std::optional<RgbPicture> smallPicture(VipsImage* image, int size) {
    const auto small = overDarkGrey(inScreenColours(reduced(image, size)));
    auto picture = small ? computed(small.get()) : std::nullopt;
    vips_error_clear();
    return picture;
}

enum class Colours { asTheProfileTells, asTheyStand };

std::optional<RgbPicture> thumbnailByVips(std::span<const std::byte> file, PictureFormat format, int size,
                                          int orientation, Colours colours) {
    const auto source = sourceOver(file);
    auto image = loadFor(source.get(), format, size);
    if (image && vips_image_get_orientation(image.get()) == kUpright)
        image = withOrientation(std::move(image), orientation);
    if (image && colours == Colours::asTheyStand) image = withoutProfile(image.get());
    return image ? smallPicture(image.get(), size) : std::nullopt;
}

bool hasProfile(std::span<const std::byte> file, PictureFormat format) {
    const auto source = sourceOver(file);
    const auto image = loadWhole(source.get(), format);
    return image && hasProfile(image.get());
}

}  // namespace

VipsImageOwner imageOverSamples(std::span<const std::uint8_t> samples, int width, int height, int channels) {
    const auto needed =
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * static_cast<std::size_t>(channels);
    if (samples.size() < needed) return nullptr;
    const VipsImageOwner plain(
        vips_image_new_from_memory(samples.data(), needed, width, height, channels, VIPS_FORMAT_UCHAR));
    if (!plain) return nullptr;
    const auto meaning = channels < kChannels ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB;
    return imageFrom(
        [&](VipsImage** image) { return vips_copy(plain.get(), image, "interpretation", meaning, nullptr); });
}

VipsImageOwner withOrientation(VipsImageOwner image, int orientation) {
    auto copy = image ? copyOf(image.get()) : nullptr;
    if (copy) vips_image_set_int(copy.get(), VIPS_META_ORIENTATION, orientation);
    return copy;
}

// A broken profile is no reason to show nothing.
std::optional<RgbPicture> thumbnailOfImage(VipsImage* image, int size) {
    if (!hasDecodableSize(image)) return std::nullopt;
    auto picture = smallPicture(image, size);
    if (picture || !hasProfile(image)) return picture;
    const auto plain = withoutProfile(image);
    return plain ? smallPicture(plain.get(), size) : std::nullopt;
}

std::optional<RgbPicture> thumbnailByVips(std::span<const std::byte> file, PictureFormat format, int size,
                                          int orientation) {
    auto picture = thumbnailByVips(file, format, size, orientation, Colours::asTheProfileTells);
    if (picture || !hasProfile(file, format)) return picture;
    return thumbnailByVips(file, format, size, orientation, Colours::asTheyStand);
}

}  // namespace vellomar
