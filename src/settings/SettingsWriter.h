#pragma once

#include <QString>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>

#include "platform/BytesJson.h"

namespace vellomar {

// Puts changed settings into their file on a thread of its own, since a disk may take its time. What could not be
// written is tried again with the next change, and once more at the end.
class SettingsWriter {
public:
    // `onWritten` tells after each writing whether it succeeded, on the writer's thread. The folder of `file` is made
    // if it is not there.
    SettingsWriter(QString file, std::function<void(bool succeeded)> onWritten);

    // Waits until all is written or has failed for good.
    ~SettingsWriter();
    SettingsWriter(const SettingsWriter&) = delete;
    SettingsWriter& operator=(const SettingsWriter&) = delete;

    // Writes soon; no value removes the setting. Any thread; returns at once.
    void write(const std::string& key, std::optional<Json> value);

    // Waits until everything asked for so far was tried. Any thread but the writer's.
    void waitUntilTried();

private:
    using Changes = std::map<std::string, std::optional<Json>>;

    void run(const std::stop_token& stop);
    [[nodiscard]] bool writeToFile(const Changes& changes) const;

    const QString file_;
    const std::function<void(bool)> onWritten_;
    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::condition_variable tried_;
    Changes changes_;  // not in the file yet
    bool isDue_ = false;
    bool isWriting_ = false;
    std::jthread thread_;  // last, as it uses the others
};

}  // namespace vellomar
