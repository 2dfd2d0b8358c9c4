// Runs the tests of what the user sees and sets. They need an application, but no display.

#include <QGuiApplication>

#include <gtest/gtest.h>

#include "ui/QmlModule.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    vellomar::chooseStyle();
    return RUN_ALL_TESTS();
}
