#pragma once

#include <QJsonArray>
#include <QString>

namespace vellomar {

// The list in a JSON file of texts that is compiled in, by the file's name without its ending. A file that is not
// there, or is no list, is a fault of the build and ends the program.
[[nodiscard]] QJsonArray compiledTexts(const QString& name);

}  // namespace vellomar
