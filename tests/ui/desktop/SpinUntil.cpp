#include "ui/desktop/SpinUntil.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>
#include <chrono>

namespace vellomar::testing {

bool spinUntil(const std::function<bool()>& condition) {
    const QDeadlineTimer end(std::chrono::seconds(60));
    QEventLoop loop;
    QTimer question;
    question.callOnTimeout([&] {
        if (condition() || end.hasExpired()) loop.quit();
    });
    question.start(std::chrono::milliseconds(1));
    loop.exec();
    return condition();
}

}  // namespace vellomar::testing
