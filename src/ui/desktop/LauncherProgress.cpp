#include "ui/desktop/LauncherProgress.h"

#include <QDBusMessage>
#include <QVariantMap>
#include <algorithm>
#include <chrono>
#include <utility>

#include "ui/desktop/ApplicationBusObject.h"

namespace vellomar {

constexpr std::chrono::milliseconds kPause(100);

LauncherProgress::LauncherProgress(QDBusConnection sessionBus) : bus_(std::move(sessionBus)) {
    pause_.setSingleShot(true);
    pause_.setTimerType(Qt::PreciseTimer);  // a coarse one may end early
    pause_.setInterval(kPause);
    pause_.callOnTimeout(this, &LauncherProgress::tell);
}

LauncherProgress::~LauncherProgress() {
    wanted_ = {};
    tell();
}

void LauncherProgress::show(double fraction) {
    change({.isVisible = true, .fraction = std::clamp(fraction, 0.0, 1.0)});
}

void LauncherProgress::hide() {
    change({});
}

void LauncherProgress::change(const Bar& bar) {
    wanted_ = bar;
    if (!pause_.isActive()) tell();
}

void LauncherProgress::tell() {
    if (wanted_ == told_) return;
    told_ = wanted_;
    auto update = QDBusMessage::createSignal(kApplicationPath, QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                             QStringLiteral("Update"));
    update << QStringLiteral("application://vellomar.desktop")
           << QVariantMap{{QStringLiteral("progress"), told_.fraction},
                          {QStringLiteral("progress-visible"), told_.isVisible}};
    bus_.send(update);
    pause_.start();
}

}  // namespace vellomar
