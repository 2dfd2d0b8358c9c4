#include "ui/confirmation/ConfirmationModel.h"

#include <utility>

namespace vellomar {

void ConfirmationModel::setSettings(RunSettings settings) {
    settings_ = std::move(settings);
    updateRows();
    emit changed();
}

void ConfirmationModel::setEstimate(const RunEstimate& estimate) {
    settings_.estimate = estimate;
    updateRows();
}

QString ConfirmationModel::subtitle() const {
    return run_ == Run::dry ? tr("Simulates the entire sort without touching any files.")
                            : realRunSubtitle(settings_.options);
}

QVariantList ConfirmationModel::promises() const {
    QVariantList list;
    for (const PromiseRow& row : run_ == Run::dry ? dryRunPromises() : realRunPromises(settings_.options))
        list << QVariantMap{{"symbol", row.symbol}, {"colour", row.colour}, {"text", row.text}};
    return list;
}

bool ConfirmationModel::warnsOfMove() const {
    return run_ == Run::real && settings_.options.moveOriginalsWhenReliable;
}

void ConfirmationModel::updateRows() {
    rows_.setRows(settingRows(settings_, run_ == Run::dry ? MissingEstimate::leftOut : MissingEstimate::told));
}

}  // namespace vellomar
