#pragma once

#include <QAbstractListModel>
#include <QString>

#include <QtQml/qqmlregistration.h>

#include "settings/PresetList.h"
#include "settings/SettingsStore.h"

namespace vellomar {

// The saved presets, one a row in the order in which they were saved, and whether their sheet is open. Every change is
// kept in the settings at once. Interface thread only.
class PresetsModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role {
        nameRole = Qt::UserRole + 1,  // on one line, whatever it is
        detailsRole,                  // naming style and conflict policy
    };

    // `settings` must outlive this. There are no rows until loadPresets().
    explicit PresetsModel(SettingsStore& settings, QObject* parent = nullptr);

    // Reads the presets; none where what is kept cannot be read.
    void loadPresets();

    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] int count() const { return rowCount(); }

    Q_INVOKABLE void open() { setOpen(true); }
    Q_INVOKABLE void dismiss() { setOpen(false); }

    // Saves the options as they are set now. False, and no change, for a name that is empty but for white space.
    Q_INVOKABLE bool savePreset(const QString& name);

    // Sets the options that a preset sets, and closes the sheet. A row that is none changes nothing.
    Q_INVOKABLE void applyPreset(int row);

    // The same for a row that is none.
    Q_INVOKABLE void deletePreset(int row);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void openChanged();
    void countChanged();

private:
    void setOpen(bool isOpen);
    [[nodiscard]] bool isRow(int row) const { return row >= 0 && row < rowCount(); }
    [[nodiscard]] const OptionsPreset& preset(int row) const { return list_.presets()[static_cast<std::size_t>(row)]; }

    SettingsStore& settings_;
    PresetList list_;
    bool isOpen_ = false;
};

}  // namespace vellomar
