#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

namespace vellomar {

// The icon that draws a symbol: the resource's path of an SVG file. Empty for a symbol that is not in the table.
[[nodiscard]] QString iconOf(QStringView symbol);

// All symbols, in the order of their names.
[[nodiscard]] QStringList knownSymbols();

}  // namespace vellomar
