#include "ui/QmlModule.h"

#include <QQuickStyle>

#include "ui/theme/SymbolImages.h"

// Made by the build. Nothing else refers to either, so that a linker would leave them out of a program.
void qml_register_types_Vellomar();

namespace vellomar {

void chooseStyle() {
    QQuickStyle::setStyle(QStringLiteral("Basic"));
}

void installQmlModule(QQmlEngine& engine) {
    qml_register_types_Vellomar();
    engine.addImportPath(QStringLiteral("qrc:/qml"));
    engine.addImageProvider(QStringLiteral("symbols"), new SymbolImages);
}

}  // namespace vellomar
