#include "ui/undo/UndoFlow.h"

#include <QGuiApplication>
#include <QPointer>
#include <utility>

#include "settings/SettingsKeys.h"
#include "undo/ManifestFiles.h"

namespace vellomar {

UndoFlow::UndoFlow(const Surroundings& surroundings, QObject* parent)
    : QObject(parent), surroundings_(surroundings), sheet_(surroundings.fileSystem, surroundings.background.runner()) {
    connect(&surroundings_.settings, &SettingsStore::changed, this, &UndoFlow::changed);
    connect(&surroundings_.events, &EngineEvents::changed, this, [this](PublishedField field) {
        if (field == PublishedField::isRunning) emit changed();
    });
}

bool UndoFlow::canOpen() const {
    return !surroundings_.settings.text(keys::kDestPath).empty() && !isBusy() && !isLoading_ && !isHeldUp_;
}

void UndoFlow::setHeldUp(bool isHeldUp) {
    if (std::exchange(isHeldUp_, isHeldUp) != isHeldUp) emit changed();
}

void UndoFlow::open() {
    if (!canOpen()) return;
    isLoading_ = true;
    emit changed();
    surroundings_.background.run(
        [&fileSystem = surroundings_.fileSystem, dest = surroundings_.settings.text(keys::kDestPath)] {
            return loadManifests(fileSystem, dest);
        },
        [this](std::vector<UndoManifest> manifests) { show(std::move(manifests)); });
}

void UndoFlow::show(std::vector<UndoManifest> manifests) {
    sheet_.clear();
    sheet_.setManifests(std::move(manifests));
    isLoading_ = false;
    isOpen_ = true;
    emit changed();
}

void UndoFlow::dismiss() {
    isOpen_ = false;
    emit changed();
    // Manifests of many large runs are large.
    sheet_.clear();
}

void UndoFlow::pickFiles() {
    surroundings_.chooser.chooseFiles(tr("Import Undo File"), QGuiApplication::focusWindow(),
                                      {tr("JSON"), {QStringLiteral("*.json")}},
                                      [this](const std::vector<std::string>& paths) { sheet_.importFiles(paths); });
}

void UndoFlow::undoSelected() {
    const auto manifest = sheet_.selected();
    if (manifest == nullptr || isBusy()) return;
    isUndoing_ = true;
    surroundings_.engine.undo(*manifest, [self = QPointer(this)] {
        if (!self) return;
        self->isUndoing_ = false;
        emit self->changed();
    });
    dismiss();
}

}  // namespace vellomar
