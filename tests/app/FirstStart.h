#pragma once

#include <QAccessible>
#include <QColor>
#include <QEasingCurve>
#include <QString>

#include <gtest/gtest.h>

#include "app/RunningApp.h"
#include "ui/QtPrinters.h"

namespace vellomar::testing {

// The application at a start that may be the first, and what a test of the wizard and the tour asks of it.
class FirstStart : public ::testing::Test {
protected:
    [[nodiscard]] WindowDriver& window() { return user.window(); }
    [[nodiscard]] WizardModel& wizard() { return *user.app().content().firstRun()->wizard(); }
    [[nodiscard]] TourModel& tour() { return *user.app().content().firstRun()->tour(); }

    // By the keyboard, as far as it takes.
    void tabTo(const QString& name) {
        for (int i = 0; i < 30 && window().focusedName() != name; ++i)
            window().press(Qt::Key_Tab);
        ASSERT_EQ(window().focusedName(), name);
    }

    void goTo(int step) {
        while (wizard().step() < step)
            wizard().goForward();
        window().settle();
    }

    // How what has the keyboard's focus is described to a screen reader.
    [[nodiscard]] QString focusedDescription() {
        auto* const interface = QAccessible::queryAccessibleInterface(user.app().window()->activeFocusItem());
        return interface == nullptr ? QString() : interface->text(QAccessible::Description);
    }

    // The colour of a button's label.
    [[nodiscard]] QColor labelColour(const QString& button) {
        auto* const interface = window().accessible(QAccessible::Button, button);
        return interface == nullptr ? QColor() : interface->object()->property("colour").value<QColor>();
    }

    // How an animation of that name goes.
    void expectToEase(const QString& animation, QEasingCurve::Type curve) {
        const auto* const found = user.app().window()->findChild<QObject*>(animation);
        ASSERT_NE(found, nullptr) << animation.toStdString();
        EXPECT_EQ(found->property("duration"), 300);
        EXPECT_EQ(found->property("easing").value<QEasingCurve>().type(), curve);
    }

    // What a dialog of that name is described as; nothing if there is none.
    [[nodiscard]] QString dialogDescription(const QString& name) {
        auto* const interface = window().accessible(QAccessible::Dialog, name);
        return interface == nullptr ? QString() : interface->text(QAccessible::Description);
    }

    RunningApp user;
    const TemporaryFolder& library = user.library();
};

}  // namespace vellomar::testing
