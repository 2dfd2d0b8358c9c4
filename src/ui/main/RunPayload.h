#pragma once

#include <string>
#include <vector>

#include "engine/model/Options.h"
#include "platform/Uuid.h"

namespace vellomar {

// One prepared run, on its way from a click to the engine by way of its confirmation. What is changed in the window
// meanwhile does not change it.
struct RunPayload {
    Uuid id = Uuid::random();
    std::vector<std::string> sources;
    std::string dest;
    Options options;
};

}  // namespace vellomar
