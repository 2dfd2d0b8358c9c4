#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/BytesJson.h"
#include "platform/FileSystem.h"
#include "settings/SettingsWriter.h"

namespace vellomar {

// All of the user's choices: a flat store of typed values in one file, kept from one start to the next.
//
// A value is in force at once, for everybody who asks, and in the file a moment later; where it cannot be written it
// stays in force until the end. What the file has besides (a newer version's settings) stays in it. A file that cannot
// be understood is put aside, never overwritten. Interface thread only; the file itself is read there once, at the
// start, and written elsewhere.
class SettingsStore : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SettingsStore)

public:
    // Settings are kept in `file`, an absolute path; it and its folder need not be there yet.
    // `fileSystem` is not kept.
    SettingsStore(FileSystem& fileSystem, const std::string& file, QObject* parent = nullptr);
    // Waits until all changes were tried to be written.
    ~SettingsStore() override;

    // "vellomar/settings.json" in the user's folder for settings, by XDG_CONFIG_HOME or else below HOME.
    // Empty where neither is an absolute path.
    [[nodiscard]] static std::string defaultFile();

    // The value of a setting; nothing if it was never written.
    [[nodiscard]] std::optional<Json> value(std::string_view key) const;

    // The same by type; the default if it was never written or is of another type. Texts are bytes, as paths are.
    [[nodiscard]] bool boolean(std::string_view key, bool byDefault = false) const;
    [[nodiscard]] int integer(std::string_view key, int byDefault = 0) const;
    [[nodiscard]] std::string text(std::string_view key) const;
    [[nodiscard]] std::optional<std::string> bytes(std::string_view key) const;

    void setValue(std::string_view key, Json value);
    void setBytes(std::string_view key, std::string_view bytes);
    void remove(std::string_view key);

    // Where a file that could not be understood was put at the start; empty if there was none.
    [[nodiscard]] const std::string& damagedFile() const { return damagedFile_; }

    // Whether the last changes could not be written.
    [[nodiscard]] bool cannotSave() const { return cannotSave_; }

    // Waits until all changes so far were tried to be written. For tests, and for the end of the program.
    void waitUntilTried() { writer_->waitUntilTried(); }

signals:
    void changed(const QString& key);
    void cannotSaveChanged();

private:
    void read(FileSystem& fileSystem, const std::string& file);
    void noteWritten(bool succeeded);

    std::map<std::string, Json, std::less<>> values_;
    std::string damagedFile_;
    bool cannotSave_ = false;
    std::unique_ptr<SettingsWriter> writer_;
};

}  // namespace vellomar
