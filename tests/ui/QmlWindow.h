#pragma once

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSize>
#include <QVariantMap>
#include <memory>
#include <string>

#include "ui/WindowDriver.h"

namespace vellomar::testing {

// The window of a QmlWindow, there before what drives it.
struct OwnWindow {
    QQuickWindow ownWindow;
};

// A window with what a piece of QML shows. Any warning of the QML engine fails the test.
class QmlWindow : private OwnWindow, public WindowDriver {
public:
    explicit QmlWindow(QSize size = {900, 600});
    ~QmlWindow();
    QmlWindow(const QmlWindow&) = delete;
    QmlWindow& operator=(const QmlWindow&) = delete;

    // For what is to be there before anything is shown.
    [[nodiscard]] QQmlEngine& engine() { return engine_; }

    // Shows an item that is as large as the window, from its QML without the imports. Fails the test when it cannot.
    QQuickItem& show(const std::string& qml, const QVariantMap& properties = {});

    // Whatever object is the one in what show() took; an item that was made later is found by itemNamed().
    [[nodiscard]] QObject& object(const char* objectName);

private:
    QQmlEngine engine_;
    std::unique_ptr<QObject> root_;
};

}  // namespace vellomar::testing
