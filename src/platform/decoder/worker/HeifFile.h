#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include <libheif/heif.h>

namespace vellomar {

// Whether the bytes begin as those of a HEIC or AVIF image do.
[[nodiscard]] bool isHeif(std::span<const std::byte> file);

// An open HEIC or AVIF file and the picture in it that counts as its first. The bytes must outlive it.
class HeifFile {
public:
    explicit HeifFile(std::span<const std::byte> file);

    // Null if the file cannot be read, or holds no picture.
    [[nodiscard]] const heif_image_handle* firstImage() const { return image_.get(); }

private:
    std::unique_ptr<heif_context, decltype(&heif_context_free)> context_;
    std::unique_ptr<heif_image_handle, decltype(&heif_image_handle_release)> image_;
};

[[nodiscard]] inline bool succeeded(const heif_error& error) {
    return error.code == heif_error_Ok;
}

}  // namespace vellomar
