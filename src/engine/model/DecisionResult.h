#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/model/ConflictPolicy.h"
#include "platform/Instant.h"

namespace vellomar {

// What is decided for one file: its date, how far to trust it, and where the file goes.
struct DecisionResult {
    std::string finalDest;        // absolute path; the run may still change it when two of its files collide
    std::string resolvedDateStr;  // dateUsed as "yyyy-MM-dd HH:mm:ss", local time
    std::string decision;         // the explanation that the plan shows; see DateDecision for its grammar
    Instant dateUsed;
    bool isStrongDate = false;                // reliable enough to permit a move
    std::vector<std::string> meaningfulTail;  // the folder names that say something, outermost first
    std::optional<std::string> sha256;        // of the source, where it was asked for and could be read
    ConflictPolicy conflictPolicy = ConflictPolicy::rename;
    std::string decisionLog;  // the line that the run logs for the file
    std::string cameraModel;  // "—" or empty when unknown
};

// What stands for an unknown camera.
inline constexpr const char* kUnknownCamera = "—";

}  // namespace vellomar
