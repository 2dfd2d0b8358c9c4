#pragma once

#include <QMap>
#include <QString>
#include <string>
#include <vector>

namespace vellomar {

// Where the place at which a picture was taken can be seen: for a program of maps, for one that knows geographic URIs,
// and for the browser, in this order. Empty unless both raw coordinates are decimal numbers. Any thread.
[[nodiscard]] std::vector<std::string> mapLinks(const QMap<QString, QString>& metadata);

}  // namespace vellomar
