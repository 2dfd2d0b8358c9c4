#include "ui/undo/UndoSheetModel.h"

#include <QPointer>
#include <algorithm>
#include <utility>

#include "ui/components/TextFormatters.h"
#include "ui/desktop/FileUri.h"
#include "ui/undo/RunDate.h"
#include "undo/ManifestFiles.h"

namespace vellomar {

// What became of one file.
struct UndoSheetModel::Reading {
    std::shared_ptr<const UndoManifest> manifest;  // null where it is none
    QString error;
};

UndoSheetModel::UndoSheetModel(FileSystem& fileSystem, RunInBackground runInBackground, const QLocale& locale,
                               QObject* parent)
    : QAbstractListModel(parent),
      fileSystem_(fileSystem),
      runInBackground_(std::move(runInBackground)),
      locale_(locale) {}

void UndoSheetModel::clear() {
    ++opening_;
    setImportError({});
    setSelected(nullptr);
    replaceRuns({});
}

void UndoSheetModel::setManifests(std::vector<UndoManifest> manifests) {
    std::vector<Run> runs;
    for (UndoManifest& manifest : manifests)
        if (!isListed(runs, manifest.runID))
            runs.push_back(runOf(std::make_shared<const UndoManifest>(std::move(manifest)), false));
    for (const Run& run : runs_)
        if (run.isImported && !isListed(runs, run.manifest->runID)) runs.push_back(run);
    replaceRuns(std::move(runs));
}

void UndoSheetModel::importFiles(std::vector<std::string> paths) {
    const auto readings = std::make_shared<std::vector<Reading>>();
    auto work = [readings, paths = std::move(paths), &fileSystem = fileSystem_] {
        for (const std::string& path : paths) {
            auto manifest = importManifest(fileSystem, path);
            if (manifest)
                readings->push_back({std::make_shared<const UndoManifest>(std::move(*manifest)), {}});
            else
                readings->push_back({nullptr, displayText(manifest.error().description)});
        }
    };
    auto then = [readings, model = QPointer(this), opening = opening_] {
        if (!model || model->opening_ != opening) return;
        for (const Reading& reading : *readings)
            model->take(reading);
    };
    runInBackground_(std::move(work), std::move(then));
}

void UndoSheetModel::importUrls(const QList<QUrl>& urls) {
    importFiles(pathsOfFileUrls(urls));
}

void UndoSheetModel::take(const Reading& reading) {
    setImportError(reading.error);
    if (reading.manifest) addImported(reading.manifest);
}

void UndoSheetModel::addImported(const std::shared_ptr<const UndoManifest>& manifest) {
    if (!isListed(runs_, manifest->runID)) {
        const int row = rowCount();
        beginInsertRows({}, row, row);
        runs_.push_back(runOf(manifest, true));
        endInsertRows();
        emit countChanged();
    }
    setSelected(manifest);
}

void UndoSheetModel::dismissImportError() {
    setImportError({});
}

void UndoSheetModel::select(int row) {
    if (row < 0 || row >= rowCount()) return;
    setSelected(runs_[static_cast<std::size_t>(row)].manifest);
}

void UndoSheetModel::selectNext() {
    select(selectedRow() + 1);
}

void UndoSheetModel::selectPrevious() {
    select(hasSelection() ? selectedRow() - 1 : rowCount() - 1);
}

int UndoSheetModel::selectedRow() const {
    if (!selected_) return -1;
    const auto found =
        std::ranges::find_if(runs_, [this](const Run& run) { return run.manifest->runID == selected_->runID; });
    return found == runs_.end() ? -1 : static_cast<int>(found - runs_.begin());
}

int UndoSheetModel::selectedOperations() const {
    return selected_ ? static_cast<int>(selected_->entries.size()) : 0;
}

int UndoSheetModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(runs_.size());
}

QVariant UndoSheetModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Run& run = runs_[static_cast<std::size_t>(index.row())];
    const auto operations = static_cast<int>(run.manifest->entries.size());
    switch (role) {
        case runDateRole: return runDateText(run.manifest->runID, locale_);
        case isImportedRole: return run.isImported;
        case operationsRole: return operations;
        case sourceRootRole: return displayText(run.manifest->sourceRoot);
        case destRootRole: return displayText(run.manifest->destRoot);
        case movedRole: return run.moved;
        case copiedRole: return operations - run.moved;
        case isSelectedRole: return index.row() == selectedRow();
        default: return {};
    }
}

QHash<int, QByteArray> UndoSheetModel::roleNames() const {
    return {{runDateRole, "runDate"},       {isImportedRole, "isImported"}, {operationsRole, "operations"},
            {sourceRootRole, "sourceRoot"}, {destRootRole, "destRoot"},     {movedRole, "moved"},
            {copiedRole, "copied"},         {isSelectedRole, "isSelected"}};
}

UndoSheetModel::Run UndoSheetModel::runOf(std::shared_ptr<const UndoManifest> manifest, bool isImported) {
    const auto moved = std::ranges::count(manifest->entries, UndoEntry::OpType::move, &UndoEntry::op);
    return {std::move(manifest), isImported, static_cast<int>(moved)};
}

bool UndoSheetModel::isListed(const std::vector<Run>& runs, const std::string& runID) {
    return std::ranges::any_of(runs, [&](const Run& run) { return run.manifest->runID == runID; });
}

void UndoSheetModel::setSelected(std::shared_ptr<const UndoManifest> manifest) {
    if (manifest == selected_) return;
    const int before = selectedRow();
    selected_ = std::move(manifest);
    for (const int row : {before, selectedRow()})
        if (row >= 0) emit dataChanged(index(row), index(row), {isSelectedRole});
    emit selectionChanged();
}

void UndoSheetModel::setImportError(const QString& error) {
    if (error == importError_) return;
    importError_ = error;
    emit importErrorChanged();
}

void UndoSheetModel::replaceRuns(std::vector<Run> runs) {
    beginResetModel();
    runs_ = std::move(runs);
    if (selectedRow() < 0) selected_ = nullptr;
    endResetModel();
    emit countChanged();
    emit selectionChanged();
}

}  // namespace vellomar
