#include "ui/QmlWindow.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlError>
#include <stdexcept>

#include <gtest/gtest.h>

#include "ui/QmlModule.h"

namespace vellomar::testing {

QmlWindow::QmlWindow(QSize size) : WindowDriver(ownWindow) {
    installQmlModule(engine_);
    QObject::connect(&engine_, &QQmlEngine::warnings, &engine_, [](const QList<QQmlError>& warnings) {
        for (const QQmlError& warning : warnings)
            ADD_FAILURE() << warning.toString().toStdString();
    });
    ownWindow.setColor(QColor(0x0A, 0x0A, 0x0A));
    ownWindow.resize(size);
}

QmlWindow::~QmlWindow() {
    root_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QAccessible::setActive(false);
}

QQuickItem& QmlWindow::show(const std::string& qml, const QVariantMap& properties) {
    QQmlComponent component(&engine_);
    const std::string imports = "import QtQuick\nimport QtQuick.Layouts\nimport Vellomar\n";
    component.setData(QByteArray::fromStdString(imports + qml), QUrl());
    if (!component.isReady()) throw std::runtime_error(component.errorString().toStdString());
    root_.reset(component.createWithInitialProperties(properties));
    auto* const item = qobject_cast<QQuickItem*>(root_.get());
    if (item == nullptr) throw std::runtime_error(component.errorString().toStdString());
    item->setParentItem(ownWindow.contentItem());
    item->setSize(ownWindow.size());
    ownWindow.show();
    waitUntilActive();
    return *item;
}

QObject& QmlWindow::object(const char* objectName) {
    auto* const found = root_->findChild<QObject*>(objectName);
    if (found == nullptr) throw std::runtime_error(std::string("no object is named ") + objectName);
    return *found;
}

}  // namespace vellomar::testing
