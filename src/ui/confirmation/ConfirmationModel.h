#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QVariantList>

#include <QtQml/qqmlregistration.h>

#include "ui/confirmation/ConfirmationRows.h"
#include "ui/confirmation/SettingRowsModel.h"

namespace vellomar {

// What one of the two sheets before a run shows. Interface thread.
class ConfirmationModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made where runs are started")
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(QVariantList promises READ promises NOTIFY changed)
    Q_PROPERTY(bool warnsOfMove READ warnsOfMove NOTIFY changed)
    Q_PROPERTY(QAbstractItemModel* settings READ settings CONSTANT)

public:
    enum class Run { dry, real };

    explicit ConfirmationModel(Run run, QObject* parent = nullptr) : QObject(parent), run_(run) {}

    // For the next time that the sheet opens.
    void setSettings(RunSettings settings);

    // May come while the sheet is open: the rows that it is about appear or change, all else stays.
    void setEstimate(const RunEstimate& estimate);

    // What the run does, in one sentence. Of a dry run the same always.
    [[nodiscard]] QString subtitle() const;

    // Each a map of "symbol", "colour" and "text".
    [[nodiscard]] QVariantList promises() const;

    // Whether the originals will be gone afterwards.
    [[nodiscard]] bool warnsOfMove() const;

    // Rows with the roles "symbol", "symbolColour", "key" and "value".
    [[nodiscard]] QAbstractItemModel* settings() { return &rows_; }

signals:
    void changed();

private:
    void updateRows();

    Run run_;
    RunSettings settings_;
    SettingRowsModel rows_;
};

}  // namespace vellomar
