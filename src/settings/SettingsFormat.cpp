#include "settings/SettingsFormat.h"

#include <QIODevice>
#include <QVariant>
#include <string>

#include "platform/BytesJson.h"

namespace vellomar {
namespace {

constexpr int kIndent = 2;

bool readSettings(QIODevice& device, QSettings::SettingsMap& settings) {
    const auto text = device.readAll();
    if (text.isEmpty()) return true;
    const auto object = parseJson({text.constData(), static_cast<std::size_t>(text.size())});
    if (!object || !object->is_object()) return false;
    for (const auto& [key, value] : object->items())
        settings.insert(QString::fromStdString(key), QVariant::fromValue<Json>(value));
    return true;
}

bool writeSettings(QIODevice& device, const QSettings::SettingsMap& settings) {
    Json object = Json::object();
    for (auto setting = settings.begin(); setting != settings.end(); ++setting)
        object[setting.key().toStdString()] = setting.value().value<Json>();
    const auto text = jsonText(object, kIndent) + "\n";
    return device.write(text.data(), static_cast<qint64>(text.size())) == static_cast<qint64>(text.size());
}

}  // namespace

QSettings::Format settingsFormat() {
    static const auto kFormat = QSettings::registerFormat("json", readSettings, writeSettings);
    return kFormat;
}

}  // namespace vellomar
