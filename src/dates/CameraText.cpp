#include "dates/CameraText.h"

#include "platform/Text.h"

namespace vellomar::ExifUtils {

std::optional<std::string> cameraText(const std::optional<std::string>& make, const std::optional<std::string>& model) {
    if (!model || model->empty()) return std::nullopt;
    if (!make || lowercased(*model).starts_with(lowercased(*make))) return model;
    return *make + " " + *model;
}

}  // namespace vellomar::ExifUtils
