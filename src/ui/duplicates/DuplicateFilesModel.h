#pragma once

#include <QAbstractListModel>
#include <QLocale>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "engine/PublishedState.h"
#include "platform/FileSystem.h"
#include "ui/components/RunInBackground.h"
#include "ui/desktop/FileReveal.h"
#include "ui/duplicates/FileLook.h"

namespace vellomar {

// The files of one group of duplicates: the one to keep, then the others. A file is where the run put it, or meant to
// put it, or else still where it came from. Which of the two, its size and its date are looked up on the disk in the
// background, one file at a time, and only for the rows in sight: a group may have hundreds, on a slow share.
// Interface thread only.
class DuplicateFilesModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the viewer")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role {
        headingRole = Qt::UserRole + 1,  // this and all other texts are for reading
        isKeptRole,
        fileNameRole,
        destinationRole,
        sourceRole,  // empty where it is not known
        sizeRole,    // this and the next are empty for a file that is nowhere, and until it was looked for
        modifiedRole,
        thumbnailRole,  // where a picture of the file is loaded from; empty likewise
        canRevealRole,  // whether there is something to reveal, as far as is known
    };

    // What it works with; all of it must outlive it, and the work in the background as well.
    struct Surroundings {
        const PublishedState& state;
        FileSystem& fileSystem;
        FileReveal& reveal;
        RunInBackground runInBackground;
    };

    explicit DuplicateFilesModel(Surroundings surroundings, const QLocale& locale = QLocale::system(),
                                 QObject* parent = nullptr);

    // Takes from the plan where each file came from. To be called before files are shown, and again for a new plan.
    void readSources();

    // No rows, and nothing kept.
    void clear();

    // Shows the group with this number among the engine's; none for nothing. The group that is shown already is shown
    // afresh.
    void setGroup(std::optional<std::size_t> group);

    // A row comes into sight, or goes.
    Q_INVOKABLE void look(int row);
    Q_INVOKABLE void lookAway(int row);

    // Shows the file where it lies on the disk at this moment. The source stands for a file that is nowhere.
    Q_INVOKABLE void reveal(int row);

    [[nodiscard]] int count() const { return rowCount(); }
    [[nodiscard]] std::optional<std::size_t> group() const { return group_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

private:
    [[nodiscard]] const std::string& destinationAt(int row) const;
    [[nodiscard]] std::string sourceOf(const std::string& destination) const;
    [[nodiscard]] std::vector<std::string> placesOf(int row) const;
    [[nodiscard]] const FoundFile* foundAt(int row) const;
    [[nodiscard]] bool canReveal(int row) const;
    void lookAtNext();
    void take(int row, const std::optional<FoundFile>& found);

    Surroundings surroundings_;
    QLocale locale_;
    std::unordered_map<std::string, std::string> sources_;  // by destination
    std::optional<std::size_t> group_;
    int files_ = 0;
    std::unordered_map<int, std::optional<FoundFile>> looks_;  // by row; what was looked for and not found as well
    std::set<int> wanted_;                                     // rows in sight that are still to be looked for
    bool isLooking_ = false;
    std::uint64_t showing_ = 0;  // what was begun in an earlier one comes too late
};

}  // namespace vellomar
