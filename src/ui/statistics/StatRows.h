// The statistics of a library as rows to show. Pure; any thread.
#pragma once

#include <QColor>
#include <QString>
#include <vector>

#include "engine/model/LibraryStats.h"

namespace vellomar {

// One line of a section: how many files have something in common.
struct StatRow {
    QString label;  // for reading
    int count = 0;
    int percentage = 0;  // of all files, in whole numbers; 0 where there are none
    double share = 0;    // of the section's largest count, from 0 to 1
};

struct StatSection {
    QString symbol;
    QString heading;
    QColor barColour;
    std::vector<StatRow> rows;
};

// Years in their order; cameras, sources of dates and types of files by their counts, the highest first and equal ones
// by their names. A section of which nothing is known has no rows.
[[nodiscard]] std::vector<StatSection> statSections(const LibraryStats& stats);

}  // namespace vellomar
