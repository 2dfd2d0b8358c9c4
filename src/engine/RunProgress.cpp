#include "engine/RunProgress.h"

#include <algorithm>

namespace vellomar {
namespace {

constexpr std::size_t kMostSamples = 10;

double seconds(std::chrono::steady_clock::duration duration) {
    return std::chrono::duration<double>(duration).count();
}

}  // namespace

double RunProgress::elapsed(Time now) const {
    return seconds(now - start_);
}

double RunProgress::etaAfter(std::size_t count, std::size_t total, Time now) {
    etaSamples_.push_back({count, now});
    if (etaSamples_.size() > kMostSamples) etaSamples_.pop_front();
    const double left = static_cast<double>(total) - static_cast<double>(count);
    if (etaSamples_.size() < 2) return std::max(0.0, elapsed(now) / static_cast<double>(count) * left);
    const double span = seconds(now - etaSamples_.front().time);
    if (span <= 0) return 0;
    const double rate = static_cast<double>(count - etaSamples_.front().count) / span;
    return rate > 0 ? left / rate : 0;
}

}  // namespace vellomar
