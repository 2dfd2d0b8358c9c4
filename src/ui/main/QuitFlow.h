#pragma once

#include <QObject>
#include <QString>

#include <QtQml/qqmlregistration.h>

#include "engine/OrganizerEngine.h"
#include "ui/dates/DateShiftRun.h"
#include "ui/main/EngineEvents.h"

namespace vellomar {

// The end of the program: at once when nothing is under way, else only after the user said so and the file under way is
// done, be it a run's or that of a shift of dates. An undo, which nothing stops, is waited for. Interface thread only.
class QuitFlow final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isAsked READ isAsked NOTIFY changed)
    Q_PROPERTY(bool isQuitting READ isQuitting NOTIFY changed)
    Q_PROPERTY(QString question READ question NOTIFY changed)

public:
    // The engine and the shift must outlive this.
    QuitFlow(OrganizerEngine& engine, const EngineEvents& events, DateShiftRun& shift, QObject* parent = nullptr);

    // Whether the question is open.
    [[nodiscard]] bool isAsked() const { return isAsked_; }

    // Whether the end waits for what is under way.
    [[nodiscard]] bool isQuitting() const { return isQuitting_; }

    [[nodiscard]] QString question() const;

    // Whether the window may close now. If not, the question is open, or the end is already on its way.
    Q_INVOKABLE bool mayClose();

    // The answers.
    Q_INVOKABLE void stay();
    Q_INVOKABLE void quit();

signals:
    void changed();
    // Nothing is under way any more, and the user wants to leave.
    void finished();

private:
    [[nodiscard]] bool isBusy() const { return engine_.state().isRunning || shift_.isRunning(); }
    [[nodiscard]] QString shiftQuestion() const;
    void look();

    OrganizerEngine& engine_;
    DateShiftRun& shift_;
    bool isAsked_ = false;
    bool isQuitting_ = false;
};

}  // namespace vellomar
