#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "engine/PublishedState.h"
#include "ui/components/RunInBackground.h"
#include "ui/main/EngineEvents.h"

namespace vellomar::testing {

// Published groups of duplicates without an engine behind them.
class PublishedGroups {
public:
    void publish(std::vector<DuplicateGroup> groups) {
        state.duplicateGroups = std::move(groups);
        events.fieldChanged(PublishedField::duplicateGroups);
    }

    PublishedState state;
    EngineEvents events;
};

// Work in the background that is done when the test says so, in the order in which it was asked for.
class HeldWork {
public:
    [[nodiscard]] RunInBackground runner() {
        return [this](std::function<void()> work, std::function<void()> then) {
            jobs_.emplace_back(std::move(work), std::move(then));
        };
    }

    [[nodiscard]] std::size_t pending() const { return jobs_.size(); }

    void doNext() {
        const auto job = std::move(jobs_.front());
        jobs_.pop_front();
        job.first();
        job.second();
    }

    void doAll() {
        while (!jobs_.empty())
            doNext();
    }

private:
    std::deque<std::pair<std::function<void()>, std::function<void()>>> jobs_;
};

// So many groups of three: "/out/2023/IMG_<number>.jpg" and two in "/out/Copies".
[[nodiscard]] inline std::vector<DuplicateGroup> manyGroups(int count) {
    std::vector<DuplicateGroup> groups;
    for (int i = 0; i < count; ++i) {
        const auto name = "IMG_" + std::to_string(i) + ".jpg";
        groups.push_back({"/out/2023/" + name, {"/out/Copies/A of " + name, "/out/Copies/B of " + name}});
    }
    return groups;
}

}  // namespace vellomar::testing
