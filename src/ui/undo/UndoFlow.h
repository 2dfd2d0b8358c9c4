#pragma once

#include <QObject>
#include <QString>

#include <QtQml/qqmlregistration.h>

#include "engine/OrganizerEngine.h"
#include "platform/FileSystem.h"
#include "settings/SettingsStore.h"
#include "ui/desktop/BackgroundWork.h"
#include "ui/desktop/FileChooser.h"
#include "ui/main/EngineEvents.h"
#include "ui/undo/UndoSheetModel.h"

namespace vellomar {

// The way from the button to an undo: the runs that the destination knows of are read, one of them is chosen, and the
// engine takes it back. Interface thread only; files are read elsewhere.
class UndoFlow final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool canOpen READ canOpen NOTIFY changed)
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY changed)
    Q_PROPERTY(bool isUndoing READ isUndoing NOTIFY changed)
    Q_PROPERTY(vellomar::UndoSheetModel* sheet READ sheet CONSTANT)

public:
    // What it works with; all of it must outlive it.
    struct Surroundings {
        OrganizerEngine& engine;
        const EngineEvents& events;
        SettingsStore& settings;
        FileSystem& fileSystem;
        FileChooser& chooser;
        BackgroundWork& background;
    };

    explicit UndoFlow(const Surroundings& surroundings, QObject* parent = nullptr);

    // Whether there is a destination to look into, and nothing is under way.
    [[nodiscard]] bool canOpen() const;

    [[nodiscard]] bool isOpen() const { return isOpen_; }

    // Whether the destination's undo files are being read. The sheet opens when they are.
    [[nodiscard]] bool isLoading() const { return isLoading_; }

    [[nodiscard]] bool isUndoing() const { return isUndoing_; }
    [[nodiscard]] UndoSheetModel* sheet() { return &sheet_; }

    // Whether undos have to wait for something else that works on files.
    void setHeldUp(bool isHeldUp);

    Q_INVOKABLE void open();
    Q_INVOKABLE void dismiss();

    // Lets the user pick undo files from elsewhere, into the sheet.
    Q_INVOKABLE void pickFiles();

    // Takes back the selected run.
    Q_INVOKABLE void undoSelected();

signals:
    void changed();

private:
    [[nodiscard]] bool isBusy() const { return surroundings_.engine.state().isRunning; }
    void show(std::vector<UndoManifest> manifests);

    Surroundings surroundings_;
    UndoSheetModel sheet_;
    bool isOpen_ = false;
    bool isLoading_ = false;
    bool isUndoing_ = false;
    bool isHeldUp_ = false;
};

}  // namespace vellomar
