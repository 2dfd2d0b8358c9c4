#pragma once

#include <QObject>

#include <QtQml/qqmlregistration.h>

#include "ui/components/ScrollThumb.h"

namespace vellomar {

// A scrollbar's thumb for QML: what is scrolled goes in, where the thumb lies comes out. All in one unit.
class ScrollThumbGeometry : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double offset MEMBER offset_ NOTIFY changed)
    Q_PROPERTY(double contentHeight MEMBER contentHeight_ NOTIFY changed)
    Q_PROPERTY(double containerHeight MEMBER containerHeight_ NOTIFY changed)
    Q_PROPERTY(bool isVisible READ isVisible NOTIFY changed)
    Q_PROPERTY(double top READ top NOTIFY changed)
    Q_PROPERTY(double height READ height NOTIFY changed)

public:
    using QObject::QObject;

    [[nodiscard]] bool isVisible() const { return thumb().isVisible; }
    [[nodiscard]] double top() const { return thumb().top; }
    [[nodiscard]] double height() const { return thumb().height; }

    // The offset at which the thumb lies at `top`, or as near as it can. 0 where nothing scrolls.
    [[nodiscard]] Q_INVOKABLE double offsetOfThumbAt(double top) const;

    // An offset near by, from 0 to where the content ends.
    [[nodiscard]] Q_INVOKABLE double offsetWithin(double wanted) const;

    // The offset nearest to the present one that shows what lies from `top` to `top + height` of the content. What is
    // higher than the container is shown from its top.
    [[nodiscard]] Q_INVOKABLE double offsetToShow(double top, double height) const;

    // The offset that a key scrolls to: the arrows by a line, Page Up and Page Down by less than the container, Home
    // and End. -1 for any other key, and where nothing scrolls.
    [[nodiscard]] Q_INVOKABLE double offsetAfterKey(int key) const;

signals:
    void changed();

private:
    [[nodiscard]] ScrollThumb thumb() const;

    double offset_ = 0;
    double contentHeight_ = 0;
    double containerHeight_ = 0;
};

}  // namespace vellomar
