#include "fuzz/Require.h"
#include "fuzz/Targets.h"
#include "platform/Text.h"
#include "platform/decoder/CameraPropertyMessages.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/metadata/CameraPropertiesReader.h"

namespace vellomar::fuzz {
namespace {

void requireReadable(const std::optional<std::string>& text) {
    if (!text) return;
    require(!text->empty(), "an empty text is absent");
    require(isUtf8(*text), "a text is UTF-8");
    require(text->find('\0') == std::string::npos, "a text has no NUL");
    require(text->front() != ' ' && text->back() != ' ', "a text has no padding");
}

void run(Input input) {
    const auto properties = readCameraProperties(std::as_bytes(input));
    if (!properties) return;
    for (const auto* text :
         {&properties->cameraMake, &properties->cameraModel, &properties->software, &properties->artist,
          &properties->lensMake, &properties->lensModel, &properties->latitudeRef, &properties->longitudeRef})
        requireReadable(*text);
    require(properties->width.has_value() == properties->height.has_value(), "a size is whole");
    require(properties->width.value_or(1) > 0 && properties->height.value_or(1) > 0, "a size is not empty");
    const auto answer = cameraPropertiesAnswer(*properties);
    require(answer.size() <= kMostBytesOfMessage, "what a camera recorded has room in an answer");
    require(cameraPropertiesFromAnswer(answer).has_value(), "what a camera recorded can be sent");
}

}  // namespace

const Target kCameraProperties = {"CameraPropertiesFuzz", InputKind::media, prepareImageLibrary, run};

}  // namespace vellomar::fuzz
