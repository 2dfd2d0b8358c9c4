#pragma once

#include <QObject>
#include <QString>
#include <string>

#include <QtQml/qqmlregistration.h>

#include "engine/PublishedState.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "ui/desktop/BackgroundWork.h"
#include "ui/desktop/FileChooser.h"
#include "ui/main/LogModel.h"

namespace vellomar {

// Taking the log and the plan out of the window: to the clipboard, or to files that the user names. What cannot be
// written is not told. Interface thread only; files are written elsewhere.
class Exports final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")

public:
    // What it works with; all of it must outlive it.
    struct Surroundings {
        const PublishedState& state;
        const LogModel& log;
        const Clock& clock;
        FileSystem& fileSystem;
        FileChooser& chooser;
        BackgroundWork& background;
    };

    explicit Exports(const Surroundings& surroundings, QObject* parent = nullptr);

    // All lines of the log, whatever its tab.
    Q_INVOKABLE void copyLog();
    Q_INVOKABLE void exportLog();

    // The published rows of the plan, as comma-separated text.
    Q_INVOKABLE void exportPlan();

private:
    Surroundings surroundings_;
};

// The name that a log is given when it is exported at `now`, local time: "vellomar_log_2026-Nov-21_05-39-PM.txt".
[[nodiscard]] std::string exportedLogName(Instant now);

}  // namespace vellomar
