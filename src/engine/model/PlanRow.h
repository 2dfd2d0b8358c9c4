#pragma once

#include <string>

#include "platform/Uuid.h"

namespace vellomar {

// One row of the plan. Fixed at creation, but for the camera.
struct PlanRow {
    Uuid id = Uuid::random();
    std::string source;
    std::string destination;   // after the handling of collisions
    std::string action;        // "COPY->" or "MOVE->" with the destination right behind it
    std::string resolvedDate;  // local time
    std::string decision;
    std::string cameraModel;
};

}  // namespace vellomar
