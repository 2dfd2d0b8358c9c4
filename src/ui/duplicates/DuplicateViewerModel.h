#pragma once

#include <QObject>
#include <QString>

#include <QtQml/qqmlregistration.h>

#include "engine/PublishedState.h"
#include "platform/FileSystem.h"
#include "ui/components/RunInBackground.h"
#include "ui/desktop/FileReveal.h"
#include "ui/duplicates/DuplicateFilesModel.h"
#include "ui/duplicates/DuplicateGroupsModel.h"
#include "ui/main/EngineEvents.h"

namespace vellomar {

// The viewer of exact duplicates: the last run's groups, which can be searched, and the files of the selected one. The
// selection is a place in the list of found groups: a search leaves it alone, so that another group may stand there,
// or none. Only an open viewer has rows. Interface thread only.
class DuplicateViewerModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(bool canOpen READ canOpen NOTIFY totalChanged)
    Q_PROPERTY(int total READ total NOTIFY totalChanged)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY selectionChanged)
    Q_PROPERTY(vellomar::DuplicateGroupsModel* groups READ groups CONSTANT)
    Q_PROPERTY(vellomar::DuplicateFilesModel* files READ files CONSTANT)

public:
    // What it works with; all of it must outlive it, and the work in the background as well. `events` are of the engine
    // that publishes `state`.
    struct Surroundings {
        const PublishedState& state;
        const EngineEvents& events;
        FileSystem& fileSystem;
        FileReveal& reveal;
        RunInBackground runInBackground;
    };

    explicit DuplicateViewerModel(const Surroundings& surroundings, QObject* parent = nullptr);

    // How many groups there are, found or not. Without any the viewer does not open; when a new run takes them away it
    // stays open.
    [[nodiscard]] int total() const { return static_cast<int>(state_.duplicateGroups.size()); }
    [[nodiscard]] bool canOpen() const { return total() > 0; }

    [[nodiscard]] bool isOpen() const { return isOpen_; }

    // Each time it opens all groups are there and the first is selected.
    Q_INVOKABLE void open();
    Q_INVOKABLE void dismiss();

    [[nodiscard]] QString searchText() const { return searchText_; }
    void setSearchText(const QString& text);

    [[nodiscard]] int selectedIndex() const { return selectedIndex_; }

    // The group at a place; one before the first means the first, one behind the last the last.
    Q_INVOKABLE void select(int index);

    [[nodiscard]] DuplicateGroupsModel* groups() { return &groups_; }
    [[nodiscard]] DuplicateFilesModel* files() { return &files_; }

signals:
    void openChanged();
    void totalChanged();
    void searchTextChanged();
    void selectionChanged();

private:
    void noteGroups();
    void showAnew();
    void setSelectedIndex(int index);
    void showSelected();

    const PublishedState& state_;
    DuplicateGroupsModel groups_;
    DuplicateFilesModel files_;
    QString searchText_;
    int selectedIndex_ = 0;
    bool isOpen_ = false;
};

}  // namespace vellomar
