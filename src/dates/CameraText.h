#pragma once

#include <optional>
#include <string>

namespace vellomar::ExifUtils {

// A camera's name from its maker and its model, for people to read: "SONY" and "ILCE-7M3" give "SONY ILCE-7M3". A
// model that begins with its maker's name, in whatever case, stands alone: "Canon" and "Canon EOS R5" give
// "Canon EOS R5". Nothing without a model, or with an empty one: a maker alone is no camera. Pure; any thread.
[[nodiscard]] std::optional<std::string> cameraText(const std::optional<std::string>& make,
                                                    const std::optional<std::string>& model);

}  // namespace vellomar::ExifUtils
