#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QLocale>
#include <QString>
#include <QUrl>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "platform/FileSystem.h"
#include "ui/components/RunInBackground.h"
#include "undo/UndoManifest.h"

namespace vellomar {

// The runs that can be undone, one a row: those whose manifests lie in the destination folder, and after them those
// that the user brought. A run is listed once. One of them may be selected. Interface thread.
class UndoSheetModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made where runs are undone")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(bool hasSelection READ hasSelection NOTIFY selectionChanged)
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectionChanged)
    Q_PROPERTY(int selectedOperations READ selectedOperations NOTIFY selectionChanged)
    Q_PROPERTY(QString importError READ importError NOTIFY importErrorChanged)

public:
    enum Role {
        runDateRole = Qt::UserRole + 1,  // text
        isImportedRole,
        operationsRole,  // how many
        sourceRootRole,  // for reading, as is the next one
        destRootRole,
        movedRole,  // how many, of the operations
        copiedRole,
        isSelectedRole,
    };

    // What is imported is read from `fileSystem`, in the background; it must outlive that work. Dates are shown as
    // `locale` has them.
    UndoSheetModel(FileSystem& fileSystem, RunInBackground runInBackground, const QLocale& locale = QLocale::system(),
                   QObject* parent = nullptr);

    // As the sheet is when it opens: nothing listed, imported, selected or failed. What is still being read is dropped.
    void clear();

    // Lists what lies in the destination folder, newest first. May come after the sheet has opened: what was imported
    // meanwhile stays behind it, and so does the selection, as long as its run is listed.
    void setManifests(std::vector<UndoManifest> manifests);

    // Reads the files one after the other. Each that is a manifest is listed, unless its run is already, and selected,
    // and takes the failure before it back; each that is none is the failure now.
    void importFiles(std::vector<std::string> paths);

    // The same for what was dropped; URLs of anything but local files are passed over.
    Q_INVOKABLE void importUrls(const QList<QUrl>& urls);

    Q_INVOKABLE void dismissImportError();

    // A row that is none leaves the selection as it is.
    Q_INVOKABLE void select(int row);

    // To the next row, or the one before; from nothing to the first or the last.
    Q_INVOKABLE void selectNext();
    Q_INVOKABLE void selectPrevious();

    // What is to be undone; null for nothing. Imported for a run that is listed already, it is not the one listed but
    // the one imported.
    [[nodiscard]] std::shared_ptr<const UndoManifest> selected() const { return selected_; }

    [[nodiscard]] int count() const { return rowCount(); }
    [[nodiscard]] bool hasSelection() const { return selected_ != nullptr; }
    [[nodiscard]] int selectedRow() const;  // -1 for none
    [[nodiscard]] int selectedOperations() const;
    [[nodiscard]] QString importError() const { return importError_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();
    void selectionChanged();
    void importErrorChanged();

private:
    struct Run {
        std::shared_ptr<const UndoManifest> manifest;
        bool isImported = false;
        int moved = 0;
    };
    struct Reading;

    [[nodiscard]] static Run runOf(std::shared_ptr<const UndoManifest> manifest, bool isImported);
    [[nodiscard]] static bool isListed(const std::vector<Run>& runs, const std::string& runID);
    void take(const Reading& reading);
    void addImported(const std::shared_ptr<const UndoManifest>& manifest);
    void setSelected(std::shared_ptr<const UndoManifest> manifest);
    void setImportError(const QString& error);
    void replaceRuns(std::vector<Run> runs);

    FileSystem& fileSystem_;
    RunInBackground runInBackground_;
    QLocale locale_;
    std::vector<Run> runs_;
    std::shared_ptr<const UndoManifest> selected_;
    QString importError_;
    int opening_ = 0;  // what was begun in an earlier one comes too late
};

}  // namespace vellomar
