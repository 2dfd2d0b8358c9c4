#include "ui/components/CompiledTexts.h"

#include <QFile>
#include <QJsonDocument>

namespace vellomar {

QJsonArray compiledTexts(const QString& name) {
    QFile file(QStringLiteral(":/texts/%1.json").arg(name));
    if (!file.open(QIODevice::ReadOnly)) qFatal("No text is compiled in as %s", qPrintable(name));
    const auto document = QJsonDocument::fromJson(file.readAll());
    if (!document.isArray()) qFatal("%s is no list", qPrintable(name));
    return document.array();
}

}  // namespace vellomar
