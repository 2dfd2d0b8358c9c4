#include "ui/options/HashGuard.h"

namespace vellomar {

bool mayHashForHours(const std::optional<RunEstimate>& estimate, bool hasSources) {
    constexpr int kMostFilesUnasked = 50'000;
    return estimate ? estimate->fileCount > kMostFilesUnasked : hasSources;
}

}  // namespace vellomar
