// The one warning, or good news, under the cards. Pure; any thread.
#pragma once

#include <QColor>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/PublishedState.h"
#include "engine/model/RunEstimate.h"

namespace vellomar {

struct Banner {
    QString symbol;
    QColor colour;
    QString text;

    bool operator==(const Banner&) const = default;
};

// Whether the destination is one of the sources, going by their texts without "." and ".." and doubled slashes.
[[nodiscard]] bool isSameFolder(const std::vector<std::string>& sources, const std::string& dest);

// "Only 1.0 GB free — need 2.0 GB"; empty while there is nothing to warn of. `free` is what the destination's volume
// has room for, if it is known.
[[nodiscard]] QString lowSpaceText(const std::string& dest, const std::optional<RunEstimate>& estimate,
                                   std::optional<std::int64_t> free);

// The most important one, if there is any.
[[nodiscard]] std::optional<Banner> bannerFor(const PublishedState& state, bool isSameFolder,
                                              const QString& lowSpaceText);

}  // namespace vellomar
