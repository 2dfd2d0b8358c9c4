#pragma once

#include <QColor>
#include <QString>
#include <cstddef>
#include <vector>

#include "engine/model/Options.h"

namespace vellomar {

// One line of the summary of all settings.
struct ConfigRow {
    QString key;
    QString value;
    QColor colour;  // of the value
    bool operator==(const ConfigRow&) const = default;
};

struct ConfigSection {
    QString heading;
    std::vector<ConfigRow> rows;
    bool operator==(const ConfigSection&) const = default;
};

// The settings at a glance, beside the folders. `presets` and `activeRules` are how many there are. Interface thread.
[[nodiscard]] std::vector<ConfigSection> configSections(const Options& options, std::size_t presets,
                                                        std::size_t activeRules);

}  // namespace vellomar
