#pragma once

#include <QAccessible>
#include <QList>
#include <QQuickItem>
#include <QQuickWindow>
#include <QUrl>
#include <string>
#include <vector>

namespace vellomar::testing {

// Drives a window with mouse and keys, and asks it as a screen reader asks.
class WindowDriver {
public:
    // The window must outlive this. It is to be shown already, or waitUntilActive() waits in vain.
    explicit WindowDriver(QQuickWindow& window);

    [[nodiscard]] QQuickWindow& window() { return window_; }

    // Until the window has the keyboard's focus, with the mouse nowhere in particular.
    void waitUntilActive();

    // Among all that the window shows, sheets and lists included. Fails the test when there is none.
    [[nodiscard]] QQuickItem& itemNamed(const char* objectName);
    [[nodiscard]] std::vector<QQuickItem*> itemsNamed(const char* objectName);

    // Texts that can be seen, in the order in which they are drawn.
    [[nodiscard]] std::vector<QQuickItem*> shownTexts();
    [[nodiscard]] bool shows(const QString& text);

    // By role and name; null where the screen reader finds none.
    [[nodiscard]] QAccessibleInterface* accessible(QAccessible::Role role, const QString& name);

    // What has the keyboard's focus, by the name that a screen reader tells.
    [[nodiscard]] QString focusedName();

    void click(QQuickItem& item);
    void clickAt(QPointF place);
    // Drags what has these addresses over an item, and then lets it fall there.
    void dragOver(const QQuickItem& item, const QList<QUrl>& addresses);
    void dropOn(const QQuickItem& item, const QList<QUrl>& addresses);

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    // Lets what is due happen and the layout settle.
    void settle();

    // Lets the window draw itself as it does for a user: unlike settle() this lays out nothing that would not be laid
    // out anyway.
    void drawFrames(int count);

    // The window as a PNG file, in the folder that VELLOMAR_SCREENSHOTS names; nothing without it.
    void saveScreenshot(const std::string& name);

private:
    QQuickWindow& window_;
};

// How it lies in the window.
[[nodiscard]] QRectF placeOf(const QQuickItem& item);

// Its property "color".
[[nodiscard]] QColor colourOf(const QQuickItem& item);

}  // namespace vellomar::testing
