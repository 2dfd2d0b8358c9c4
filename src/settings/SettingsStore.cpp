#include "settings/SettingsStore.h"

#include <QByteArray>
#include <QFile>
#include <QMetaObject>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

#include "platform/FileMove.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"
#include "settings/JsonValues.h"

namespace vellomar {
namespace {

constexpr std::string_view kDamagedSuffix = ".damaged";

std::string absolutePathIn(const char* variable) {
    const char* path = std::getenv(variable);
    return path != nullptr && *path == '/' ? path : "";
}

}  // namespace

SettingsStore::SettingsStore(FileSystem& fileSystem, const std::string& file, QObject* parent) : QObject(parent) {
    read(fileSystem, file);
    writer_ = std::make_unique<SettingsWriter>(QFile::decodeName(file.c_str()), [this](bool succeeded) {
        QMetaObject::invokeMethod(
            this, [this, succeeded] { noteWritten(succeeded); }, Qt::QueuedConnection);
    });
}

// The writer calls upon this object to its end.
SettingsStore::~SettingsStore() {
    writer_.reset();
}

std::string SettingsStore::defaultFile() {
    constexpr std::string_view kPlace = "vellomar/settings.json";
    if (const auto folder = absolutePathIn("XDG_CONFIG_HOME"); !folder.empty()) return joinPath(folder, kPlace);
    const auto home = absolutePathIn("HOME");
    return home.empty() ? "" : joinPath(joinPath(home, ".config"), kPlace);
}

std::optional<Json> SettingsStore::value(std::string_view key) const {
    const auto found = values_.find(key);
    if (found == values_.end()) return std::nullopt;
    return found->second;
}

bool SettingsStore::boolean(std::string_view key, bool byDefault) const {
    const auto found = value(key);
    return found ? booleanFrom(*found).value_or(byDefault) : byDefault;
}

int SettingsStore::integer(std::string_view key, int byDefault) const {
    const auto found = value(key);
    return found ? integerFrom(*found).value_or(byDefault) : byDefault;
}

std::string SettingsStore::text(std::string_view key) const {
    const auto found = value(key);
    return found ? textFrom(*found).value_or("") : "";
}

std::optional<std::string> SettingsStore::bytes(std::string_view key) const {
    const auto found = value(key);
    return found ? bytesFrom(*found) : std::nullopt;
}

void SettingsStore::setValue(std::string_view key, Json value) {
    const auto found = values_.find(key);
    if (found != values_.end() && found->second == value) return;
    values_.insert_or_assign(std::string(key), value);
    writer_->write(std::string(key), std::move(value));
    emit changed(QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size())));
}

void SettingsStore::setBytes(std::string_view key, std::string_view bytes) {
    setValue(key, jsonOfBytes(bytes));
}

void SettingsStore::remove(std::string_view key) {
    const auto found = values_.find(key);
    if (found == values_.end()) return;
    values_.erase(found);
    writer_->write(std::string(key), std::nullopt);
    emit changed(QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size())));
}

void SettingsStore::read(FileSystem& fileSystem, const std::string& file) {
    const auto text = readWholeFile(fileSystem, file);
    if (!text || text->empty()) return;
    const auto object = parseJson(*text);
    if (object && object->is_object()) {
        for (const auto& [key, value] : object->items())
            values_.emplace(key, value);
    } else if (auto moved = moveToFreeName(fileSystem, file, std::string(file).append(kDamagedSuffix))) {
        damagedFile_ = *std::move(moved);
    }
}

void SettingsStore::noteWritten(bool succeeded) {
    if (cannotSave_ == !succeeded) return;
    cannotSave_ = !succeeded;
    emit cannotSaveChanged();
}

}  // namespace vellomar
