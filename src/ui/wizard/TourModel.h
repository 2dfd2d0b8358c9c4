#pragma once

#include <QList>
#include <QObject>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <QtQml/qqmlregistration.h>

#include "ui/wizard/CalloutPlace.h"
#include "ui/wizard/TourItems.h"

namespace vellomar {

// The tour through the window: which area is spoken of, and what is said. Interface thread only.
class TourModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed)
    Q_PROPERTY(int step READ step WRITE setStep NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString description READ description NOTIFY changed)
    Q_PROPERTY(QString icon READ icon NOTIFY changed)
    Q_PROPERTY(QString area READ area NOTIFY changed)
    Q_PROPERTY(QString positionText READ positionText NOTIFY changed)
    Q_PROPERTY(QString spokenText READ spokenText NOTIFY changed)
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY changed)
    Q_PROPERTY(QString forwardText READ forwardText NOTIFY changed)

public:
    explicit TourModel(QObject* parent = nullptr);

    // Begins at the first stop.
    void open();
    // Ends the tour, at whatever stop.
    Q_INVOKABLE void dismiss();

    [[nodiscard]] bool isOpen() const { return isOpen_; }

    // Whether there is something to show: the tour is on, at a stop that there is.
    [[nodiscard]] bool isShown() const { return isOpen_ && step_ >= 0 && step_ < items_.size(); }

    [[nodiscard]] const QList<TourItem>& items() const { return items_; }

    // The number of the stop, from 0.
    [[nodiscard]] int step() const { return step_; }
    void setStep(int step);

    // Of the stop; empty where there is none.
    [[nodiscard]] QString title() const { return item().title; }
    [[nodiscard]] QString description() const { return item().description; }
    [[nodiscard]] QString icon() const { return item().icon; }
    [[nodiscard]] QString area() const { return item().area; }

    [[nodiscard]] QString positionText() const;
    // All of it, for a screen reader.
    [[nodiscard]] QString spokenText() const;
    [[nodiscard]] bool canGoBack() const { return step_ > 0; }
    [[nodiscard]] QString forwardText() const { return isLastStep() ? tr("Got it!") : tr("Next →"); }

    // To the next stop; behind the last one the tour ends.
    Q_INVOKABLE void goForward();
    Q_INVOKABLE void goBack();

    // See calloutPlace() and bestTop().
    [[nodiscard]] Q_INVOKABLE vellomar::CalloutPlace placeIn(QSizeF window, QRectF area, QRectF sight,
                                                             QSizeF box) const;
    [[nodiscard]] Q_INVOKABLE double areaTop(QSizeF window, double height, QRectF sight) const;

signals:
    void changed();

private:
    [[nodiscard]] bool isLastStep() const { return step_ == items_.size() - 1; }
    [[nodiscard]] TourItem item() const { return items_.value(step_); }

    const QList<TourItem> items_;
    int step_ = 0;
    bool isOpen_ = false;
};

}  // namespace vellomar
