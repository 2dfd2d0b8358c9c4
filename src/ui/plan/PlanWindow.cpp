#include "ui/plan/PlanWindow.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;

constexpr auto kMomentAway = 100ms;
constexpr auto kDelayOfClosing = 100ms;

}  // namespace

PlanWindow::PlanWindow(const PublishedState& state, const EngineEvents& events,
                       const Inspector::Surroundings& surroundings, QObject* parent)
    : QObject(parent), plan_(FilePlan::Shows::filteredRows, state, events, surroundings) {
    leaving_.setSingleShot(true);
    leaving_.setInterval(kMomentAway);
    connect(&leaving_, &QTimer::timeout, this, [this] { isAway_ = true; });
    closing_.setSingleShot(true);
    closing_.setInterval(kDelayOfClosing);
    connect(&closing_, &QTimer::timeout, this, &PlanWindow::close);
}

void PlanWindow::open() {
    if (isOpen_) {
        emit raiseRequested();
        return;
    }
    isOpen_ = true;
    emit openChanged();
}

void PlanWindow::close() {
    if (!isOpen_) return;
    isOpen_ = false;
    plan_.inspector()->dismiss();
    emit openChanged();
}

void PlanWindow::noteApplicationState(Qt::ApplicationState state) {
    if (state != Qt::ApplicationActive) {
        leaving_.start();
        return;
    }
    leaving_.stop();
    if (isAway_) closing_.start();
    isAway_ = false;
}

}  // namespace vellomar
