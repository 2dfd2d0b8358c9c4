#pragma once

#include <QObject>
#include <QString>

#include <QtQml/qqmlregistration.h>

namespace vellomar {

// What the status pill reads.
class StatusPillWords : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool isRunning MEMBER isRunning_ NOTIFY changed)
    Q_PROPERTY(QString statusText MEMBER statusText_ NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)

public:
    using QObject::QObject;

    // While a run is under way that it is; else what the last one left in capitals, or that there was none.
    [[nodiscard]] QString text() const;

signals:
    void changed();

private:
    bool isRunning_ = false;
    QString statusText_;
};

}  // namespace vellomar
