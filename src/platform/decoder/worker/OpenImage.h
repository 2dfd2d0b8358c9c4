#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include <exiv2/exiv2.hpp>

namespace vellomar {

// Makes the library of image metadata ready; once for the process, before the first read and before any thread starts.
void prepareImageLibrary();

// The image with its metadata, read as far as it goes: what stands before the place where a broken file made the
// library give up is as good as the rest. Null for bytes that are no image. Throws what the library throws. The bytes
// must outlive it.
[[nodiscard]] std::unique_ptr<Exiv2::Image> openImage(std::span<const std::byte> file);

}  // namespace vellomar
