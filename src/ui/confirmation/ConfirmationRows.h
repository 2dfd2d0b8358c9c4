// What the two sheets before a run tell. Pure; any thread.
#pragma once

#include <QColor>
#include <QString>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "engine/model/Options.h"
#include "engine/model/RunEstimate.h"

namespace vellomar {

// One thing that a run does, or is good for.
struct PromiseRow {
    QString symbol;
    QColor colour;
    QString text;

    bool operator==(const PromiseRow&) const = default;
};

// "WHAT IT DOES" of a dry run.
[[nodiscard]] std::vector<PromiseRow> dryRunPromises();

// "WHAT WILL HAPPEN" in a real one.
[[nodiscard]] std::vector<PromiseRow> realRunPromises(const Options& options);

// What a real run does in one sentence, below the sheet's title.
[[nodiscard]] QString realRunSubtitle(const Options& options);

// What a run is about to be started with.
struct RunSettings {
    std::vector<std::string> sources;
    std::string dest;
    Options options;
    std::optional<RunEstimate> estimate;  // not there yet while it is being counted
    std::size_t activeRules = 0;          // rename rules that are enabled
};

struct SettingRow {
    QString symbol;
    QColor symbolColour;
    QString key;
    QString value;

    bool operator==(const SettingRow&) const = default;
};

// Whether the row of files is there, and says so, while the estimate is still being counted.
enum class MissingEstimate { leftOut, told };

// "YOUR CURRENT SETTINGS".
[[nodiscard]] std::vector<SettingRow> settingRows(const RunSettings& settings, MissingEstimate missingEstimate);

}  // namespace vellomar
