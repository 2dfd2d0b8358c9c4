#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>

#include <QtQml/qqmlregistration.h>

#include "engine/model/ConflictPolicy.h"
#include "settings/SettingsStore.h"
#include "ui/options/OptionRowsModel.h"

namespace vellomar {

// The options panel: its two tabs, and what asks before an option takes effect. A run that is under way keeps the
// options that it began with. Interface thread only.
class OptionsPanelModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(QAbstractItemModel* basic READ basic CONSTANT)
    Q_PROPERTY(QAbstractItemModel* advanced READ advanced CONSTANT)
    Q_PROPERTY(QAbstractItemModel* files READ files CONSTANT)
    Q_PROPERTY(bool showsAdvanced READ showsAdvanced WRITE setShowsAdvanced NOTIFY changed)
    Q_PROPERTY(QStringList conflictLabels READ conflictLabels CONSTANT)
    Q_PROPERTY(int conflict READ conflict NOTIFY changed)
    Q_PROPERTY(bool includesImages READ includesImages NOTIFY changed)
    Q_PROPERTY(bool includesVideos READ includesVideos NOTIFY changed)
    Q_PROPERTY(bool includesOther READ includesOther NOTIFY changed)
    Q_PROPERTY(bool lacksFileTypes READ lacksFileTypes NOTIFY changed)
    Q_PROPERTY(bool isHashAsked READ isHashAsked NOTIFY changed)
    Q_PROPERTY(bool isOverwriteAsked READ isOverwriteAsked NOTIFY changed)

public:
    // `settings` must outlive this. `isLibraryLarge` tells, when it is asked, whether hashing all files may take hours.
    OptionsPanelModel(SettingsStore& settings, std::function<bool()> isLibraryLarge, QObject* parent = nullptr);

    // Rows with the roles of OptionRowsModel.
    [[nodiscard]] QAbstractItemModel* basic() { return &basic_; }
    [[nodiscard]] QAbstractItemModel* advanced() { return &advanced_; }
    [[nodiscard]] QAbstractItemModel* files() { return &files_; }

    [[nodiscard]] bool showsAdvanced() const;
    void setShowsAdvanced(bool isShown);

    // The policies in the order in which they are offered, and which of them is in force, from 0.
    [[nodiscard]] static QStringList conflictLabels();
    [[nodiscard]] int conflict() const;

    [[nodiscard]] bool includesImages() const;
    [[nodiscard]] bool includesVideos() const;
    [[nodiscard]] bool includesOther() const;

    // Whether no kind of file is included, so that no run can begin.
    [[nodiscard]] bool lacksFileTypes() const;

    // Whether a question is open.
    [[nodiscard]] bool isHashAsked() const { return isHashAsked_; }
    [[nodiscard]] bool isOverwriteAsked() const { return isOverwriteAsked_; }

    // Asks for an option of the rows to be on or off. One of the two kinds of stripping switches the other off; the
    // search for duplicates in a large library opens a question first.
    Q_INVOKABLE void setOn(const QString& key, bool isOn);
    Q_INVOKABLE void enableHash();
    Q_INVOKABLE void dismissHash();

    Q_INVOKABLE void toggleImages();
    Q_INVOKABLE void toggleVideos();
    Q_INVOKABLE void toggleOther();

    // Asks for a policy, by its place. To overwrite opens a question first, unless it is in force already. A number
    // that is no policy changes nothing.
    Q_INVOKABLE void chooseConflict(int policy);
    Q_INVOKABLE void useOverwrite();
    Q_INVOKABLE void dismissOverwrite();

signals:
    void changed();

private:
    void setConflict(ConflictPolicy policy);
    void toggle(std::string_view key);

    SettingsStore& settings_;
    std::function<bool()> isLibraryLarge_;
    OptionRowsModel basic_;
    OptionRowsModel advanced_;
    OptionRowsModel files_;
    bool isHashAsked_ = false;
    bool isOverwriteAsked_ = false;
};

}  // namespace vellomar
