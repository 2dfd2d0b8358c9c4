#include "ui/QmlModule.h"

#include <QQuickStyle>

#include "ui/theme/SymbolImages.h"

// Made by the build. Nothing else refers to either, so that a linker would leave them out of a program.
void qml_register_types_Vellomar();

namespace vellomar {

void installQmlModule(QQmlEngine& engine) {
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    qml_register_types_Vellomar();
    engine.addImportPath(QStringLiteral("qrc:/qml"));
    engine.addImageProvider(QStringLiteral("symbols"), new SymbolImages);
}

}  // namespace vellomar
