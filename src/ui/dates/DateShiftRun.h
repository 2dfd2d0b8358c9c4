#pragma once

#include <QObject>
#include <string>
#include <utility>
#include <vector>

#include "tools/DateShifter.h"

namespace vellomar {

// The shift of dates that is under way, or was the last one, with a signal for each change of it. Several parts of the
// window look at it. Interface thread only.
class DateShiftRun final : public QObject {
    Q_OBJECT

public:
    // The services must outlive this.
    explicit DateShiftRun(const DateShifter::Services& services, QObject* parent = nullptr)
        : QObject(parent), shifter_(services, [this] { emit changed(); }) {}

    [[nodiscard]] const DateShiftState& state() const { return shifter_.state(); }
    [[nodiscard]] bool isRunning() const { return state().isRunning; }

    void applyShift(std::vector<std::string> folders, const DateShift& shift) {
        shifter_.applyShift(std::move(folders), shift);
    }

    // Behind the file under way.
    void stop() { shifter_.stop(); }

signals:
    void changed();

private:
    DateShifter shifter_;
};

}  // namespace vellomar
