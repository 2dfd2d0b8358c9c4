#pragma once

#include <cstddef>
#include <string_view>

#include "engine/PublishedState.h"

namespace vellomar {

// Who is told what changed in the engine's published state, so that a view never compares lists. All on the main
// actor, after the change, but for lineLogged().
class EngineObserver {
public:
    virtual ~EngineObserver() = default;

    // A field other than the two lists has a new value, or a list was emptied.
    virtual void fieldChanged(PublishedField /*field*/) {}

    // The last `count` of the published lines are new.
    virtual void linesAppended(std::size_t /*count*/) {}

    // As many of the oldest lines are gone.
    virtual void linesDropped(std::size_t /*count*/) {}

    // The last `count` of the published rows are new.
    virtual void rowsAppended(std::size_t /*count*/) {}

    // A line was logged; it is published some time later. On the thread that logs, which waits for the return.
    virtual void lineLogged(std::string_view /*line*/) {}
};

}  // namespace vellomar
