#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>

namespace vellomar {

// The progress bar on the program's icon in a dock or task bar, where the desktop has such. Interface thread only.
//
// The desktop is told ten times a second at most, and at last of how it stands.
class LauncherProgress final : public QObject {
public:
    explicit LauncherProgress(QDBusConnection sessionBus);

    // The bar goes with the program.
    ~LauncherProgress() override;
    LauncherProgress(const LauncherProgress&) = delete;
    LauncherProgress& operator=(const LauncherProgress&) = delete;

    // Shows the bar at `fraction`, from 0 to 1.
    void show(double fraction);

    // Takes the bar away: there is no work under way.
    void hide();

private:
    struct Bar {
        bool isVisible = false;
        double fraction = 0;
        bool operator==(const Bar&) const = default;
    };

    void change(const Bar& bar);
    void tell();

    QDBusConnection bus_;
    Bar wanted_;
    Bar told_;
    QTimer pause_;  // runs while the desktop is not to be told again
};

}  // namespace vellomar
