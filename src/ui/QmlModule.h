#pragma once

#include <QQmlEngine>

namespace vellomar {

// Has Qt's own controls drawn in the style that goes with ours. Once, before any engine loads anything.
void chooseStyle();

// Makes the module "Vellomar", which has all screens and what they are made of, known to an engine, and the images that
// it draws. Once an engine, before it loads anything.
void installQmlModule(QQmlEngine& engine);

}  // namespace vellomar
