#pragma once

#include <string>
#include <utility>
#include <vector>

#include "engine/EngineObserver.h"
#include "engine/PublishedState.h"

namespace vellomar {

// The published state together with its observer: no change without a word. Main actor only.
class Publication {
public:
    explicit Publication(EngineObserver* observer) : observer_(observer) {}

    [[nodiscard]] const PublishedState& state() const { return state_; }

    // Gives a field a new value. Not for the two lists.
    template <typename Value>
    void set(PublishedField field, Value PublishedState::*member, Value value) {
        state_.*member = std::move(value);
        notify(field);
    }

    void setStatus(std::string text) { set(PublishedField::statusText, &PublishedState::statusText, std::move(text)); }
    void setProgress(double value) { set(PublishedField::progress, &PublishedState::progress, value); }
    void setRunning(bool value) { set(PublishedField::isRunning, &PublishedState::isRunning, value); }

    // Everything as at the start of a run, but isRunning.
    void resetPublishedState();

    // Keeps the first rows of a run, up to the limit.
    void appendPreviewRows(std::vector<PlanRow> rows);

    // Keeps the newest lines, up to the limit.
    void appendLogLines(std::vector<std::string> lines);

private:
    void notify(PublishedField field) {
        if (observer_ != nullptr) observer_->fieldChanged(field);
    }

    PublishedState state_;
    EngineObserver* observer_;
};

}  // namespace vellomar
