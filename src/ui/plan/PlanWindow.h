#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <QtQml/qqmlregistration.h>

#include "ui/plan/FilePlan.h"

namespace vellomar {

// The plan's own window: whether it is open, and its view of the plan. It lives while the program is in front: when the
// user comes back from another program it closes. Interface thread only.
class PlanWindow final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the main window")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(vellomar::FilePlan* plan READ plan CONSTANT)

public:
    // As FilePlan's.
    PlanWindow(const PublishedState& state, const EngineEvents& events, const Inspector::Surroundings& surroundings,
               QObject* parent = nullptr);

    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] FilePlan* plan() { return &plan_; }

    // Opened while it is open, it is asked to come to the front.
    Q_INVOKABLE void open();
    Q_INVOKABLE void close();

    // To be told whenever the program comes to the front or leaves it. Between two of its own windows some desktops let
    // it leave for a moment, which does not count.
    void noteApplicationState(Qt::ApplicationState state);

signals:
    void openChanged();
    void raiseRequested();

private:
    FilePlan plan_;
    bool isOpen_ = false;
    bool isAway_ = false;  // long enough to count
    QTimer leaving_;
    QTimer closing_;
};

}  // namespace vellomar
