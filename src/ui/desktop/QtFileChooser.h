#pragma once

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "ui/desktop/BackgroundWork.h"
#include "ui/desktop/FileChooser.h"

namespace vellomar {

// Qt's own dialog, for a desktop without a portal. It has limits: of several folders it lets the user choose one, it
// does not see names that are not UTF-8, and it has no field for the name of a new file. Who saves a file is asked for
// the folder alone, and the file gets the suggested name, with a number if there is such a file already.
class QtFileChooser final : public QObject, public FileChooser {
    Q_OBJECT

public:
    // Both must stay as long as this. `engine` knows our QML module.
    QtFileChooser(QQmlEngine& engine, FileSystem& fileSystem, QObject* parent = nullptr);

    void choose(const FileQuestion& question, Done done) override;

private:
    Q_SLOT void accept();
    Q_SLOT void reject();
    [[nodiscard]] QObject* makeDialog(const FileQuestion& question);
    void open();
    void finishIn(const std::string& folder);
    void finish(const std::vector<std::string>& paths);

    QQmlEngine& engine_;
    FileSystem& fileSystem_;
    QPointer<QObject> dialog_;
    FileQuestion question_;  // the one that is open
    Done done_;              // empty while no dialog is open
    BackgroundWork background_;
};

}  // namespace vellomar
