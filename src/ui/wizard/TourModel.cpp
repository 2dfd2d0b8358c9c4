#include "ui/wizard/TourModel.h"

#include <QStringList>

namespace vellomar {

TourModel::TourModel(QObject* parent) : QObject(parent), items_(tourItems()) {}

void TourModel::open() {
    step_ = 0;
    isOpen_ = true;
    emit changed();
}

void TourModel::dismiss() {
    isOpen_ = false;
    emit changed();
}

void TourModel::setStep(int step) {
    step_ = step;
    emit changed();
}

QString TourModel::positionText() const {
    return tr("%1 of %2").arg(step_ + 1).arg(items_.size());
}

QString TourModel::spokenText() const {
    return QStringList{title(), description(), positionText()}.join(u'\n');
}

void TourModel::goForward() {
    if (isLastStep())
        dismiss();
    else
        setStep(step_ + 1);
}

void TourModel::goBack() {
    if (canGoBack()) setStep(step_ - 1);
}

CalloutPlace TourModel::placeIn(QSizeF window, QRectF area, QRectF sight, QSizeF box) const {
    return calloutPlace(item(), window, area, sight, box);
}

double TourModel::areaTop(QSizeF window, double height, QRectF sight) const {
    return bestTop(item(), window, height, sight);
}

}  // namespace vellomar
