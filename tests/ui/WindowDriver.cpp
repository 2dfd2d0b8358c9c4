#include "ui/WindowDriver.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QTest>
#include <functional>
#include <stdexcept>

#include <gtest/gtest.h>

#include "ui/desktop/SpinUntil.h"

namespace vellomar::testing {
namespace {

void forEachItem(QQuickItem& item, const std::function<void(QQuickItem&)>& visit) {
    visit(item);
    for (QQuickItem* const child : item.childItems())
        forEachItem(*child, visit);
}

QAccessibleInterface* find(QAccessibleInterface* from, const std::function<bool(QAccessibleInterface&)>& isIt) {
    if (from == nullptr) return nullptr;
    if (isIt(*from)) return from;
    for (int i = 0; i < from->childCount(); ++i)
        if (auto* const found = find(from->child(i), isIt)) return found;
    return nullptr;
}

}  // namespace

WindowDriver::WindowDriver(QQuickWindow& window) : window_(window) {
    QAccessible::setActive(true);
}

void WindowDriver::waitUntilActive() {
    window_.requestActivate();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    settle();
    // A new window takes the mouse to be in its corner, and a mouse that stays where it was tells nothing else.
    for (const int distance : {2, 1})
        QTest::mouseMove(&window_, QPoint(window_.width() - distance, window_.height() - distance));
    settle();
}

QQuickItem& WindowDriver::itemNamed(const char* objectName) {
    const auto found = itemsNamed(objectName);
    if (found.empty()) throw std::runtime_error(std::string("no item is named ") + objectName);
    return *found.front();
}

std::vector<QQuickItem*> WindowDriver::itemsNamed(const char* objectName) {
    std::vector<QQuickItem*> found;
    forEachItem(*window_.contentItem(), [&](QQuickItem& item) {
        if (item.objectName() == QLatin1String(objectName)) found.push_back(&item);
    });
    return found;
}

std::vector<QQuickItem*> WindowDriver::shownTexts() {
    std::vector<QQuickItem*> texts;
    forEachItem(*window_.contentItem(), [&](QQuickItem& item) {
        const bool isText = item.inherits("QQuickText") && !item.property("text").toString().isEmpty();
        if (isText && item.isVisible() && item.opacity() > 0) texts.push_back(&item);
    });
    return texts;
}

bool WindowDriver::shows(const QString& text) {
    for (const QQuickItem* const item : shownTexts())
        if (item->property("text").toString() == text) return true;
    return false;
}

QAccessibleInterface* WindowDriver::accessible(QAccessible::Role role, const QString& name) {
    return find(QAccessible::queryAccessibleInterface(&window_), [&](QAccessibleInterface& interface) {
        return interface.role() == role && interface.text(QAccessible::Name) == name && !interface.state().invisible;
    });
}

QString WindowDriver::focusedName() {
    QQuickItem* const item = window_.activeFocusItem();
    auto* const interface = item == nullptr ? nullptr : QAccessible::queryAccessibleInterface(item);
    return interface == nullptr ? QString() : interface->text(QAccessible::Name);
}

void WindowDriver::click(QQuickItem& item) {
    clickAt(placeOf(item).center());
}

void WindowDriver::clickAt(QPointF place) {
    QTest::mouseClick(&window_, Qt::LeftButton, {}, place.toPoint());
    settle();
}

void WindowDriver::dragOver(const QQuickItem& item, const QList<QUrl>& addresses) {
    QMimeData data;
    data.setUrls(addresses);
    QDragEnterEvent enter(placeOf(item).center().toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window_, &enter);
}

void WindowDriver::dropOn(const QQuickItem& item, const QList<QUrl>& addresses) {
    QMimeData data;
    data.setUrls(addresses);
    QDropEvent dropped(placeOf(item).center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window_, &dropped);
}

void WindowDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&window_, key, modifiers);
    settle();
}

void WindowDriver::settle() {
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        forEachItem(*window_.contentItem(), [](QQuickItem& item) { item.ensurePolished(); });
    }
}

void WindowDriver::drawFrames(int count) {
    for (int frame = 0; frame < count; ++frame) {
        bool isDrawn = false;
        const auto connection = QObject::connect(&window_, &QQuickWindow::frameSwapped, [&] { isDrawn = true; });
        window_.update();
        EXPECT_TRUE(spinUntil([&] { return isDrawn; }));
        QObject::disconnect(connection);
    }
}

void WindowDriver::saveScreenshot(const std::string& name) {
    const QString folder = qEnvironmentVariable("VELLOMAR_SCREENSHOTS");
    if (folder.isEmpty()) return;
    const QString path = folder + u'/' + QString::fromStdString(name) + QStringLiteral(".png");
    EXPECT_TRUE(window_.grabWindow().save(path)) << path.toStdString();
}

QRectF placeOf(const QQuickItem& item) {
    return item.mapRectToScene(QRectF(0, 0, item.width(), item.height()));
}

QColor colourOf(const QQuickItem& item) {
    return item.property("color").value<QColor>();
}

}  // namespace vellomar::testing
