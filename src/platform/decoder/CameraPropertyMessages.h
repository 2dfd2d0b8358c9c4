// The decoder's answers to requests for what the camera recorded, as the bytes of messages.
#pragma once

#include <cstddef>
#include <optional>

#include "platform/decoder/CameraProperties.h"
#include "platform/decoder/SocketMessages.h"

namespace vellomar {

// Texts of so many bytes, and so many speeds, have room in an answer.
inline constexpr std::size_t kLongestCameraText = 1024;
inline constexpr std::size_t kMostIsoSpeeds = 64;

// The answer, always short enough for a message: longer texts are cut at the end of a character, and further speeds
// left out.
[[nodiscard]] MessageBytes cameraPropertiesAnswer(const CameraProperties& properties);

// Nothing for bytes that are no answer, whatever they are. All texts are UTF-8, all numbers finite.
[[nodiscard]] std::optional<CameraProperties> cameraPropertiesFromAnswer(const MessageBytes& bytes);

}  // namespace vellomar
