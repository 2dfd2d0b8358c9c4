#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <vector>

namespace vellomar::testing {

// Keeps every signal of one kind that anybody on a bus sends.
class SignalListener : public QObject {
    Q_OBJECT

public:
    SignalListener(QDBusConnection connection, const QString& interface, const QString& name);

    [[nodiscard]] const std::vector<QDBusMessage>& messages() const { return messages_; }

private slots:
    void take(const QDBusMessage& message) { messages_.push_back(message); }

private:
    std::vector<QDBusMessage> messages_;
};

}  // namespace vellomar::testing
