// The settings from which tests of the confirmation sheets start.
#pragma once

#include "ui/confirmation/ConfirmationRows.h"

namespace vellomar {

// One source, no estimate, no rules, and all off that can be.
inline RunSettings plainSettings() {
    RunSettings settings{{"/photos/Card"}, "/library/Sorted/", {}, {}, 0};
    auto& options = settings.options;
    options.moveOriginalsWhenReliable = options.computeHashForDuplicates = options.verifyAfterCopy = false;
    options.keepRawJpegPairs = options.syncFSDates = false;
    return settings;
}

}  // namespace vellomar
