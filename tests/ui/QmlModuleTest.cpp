#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <memory>

#include <gtest/gtest.h>

#include "ui/QmlModule.h"

namespace vellomar {
namespace {

TEST(QmlModule, AFileOfTheModuleCanBeShown) {
    QQmlEngine engine;
    installQmlModule(engine);
    QQmlComponent component(&engine);
    component.setData("import QtQuick\nimport Vellomar\nSymbol { name: 'eye'; colour: Theme.yellow; size: 20 }",
                      QUrl());

    const std::unique_ptr<QObject> object(component.create());

    ASSERT_NE(object, nullptr) << component.errorString().toStdString();
    EXPECT_EQ(object->property("source").toString().toStdString(), "image://symbols/eye/f5c518");
    EXPECT_EQ(object->property("implicitWidth").toDouble(), 20);
}

}  // namespace
}  // namespace vellomar
