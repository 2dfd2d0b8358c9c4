#include "fuzz/Require.h"
#include "fuzz/Targets.h"
#include "platform/decoder/CameraPropertyMessages.h"

namespace vellomar::fuzz {
namespace {

void run(Input input) {
    const auto properties = cameraPropertiesFromAnswer({input.begin(), input.end()});
    if (!properties) return;
    const auto answer = cameraPropertiesAnswer(*properties);
    require(answer.size() <= kMostBytesOfMessage, "an answer is short enough for a message");
    require(cameraPropertiesFromAnswer(answer) == properties, "what was received can be sent");
}

}  // namespace

const Target kCameraPropertyMessages = {"CameraPropertyMessagesFuzz", InputKind::text, nullptr, run};

}  // namespace vellomar::fuzz
