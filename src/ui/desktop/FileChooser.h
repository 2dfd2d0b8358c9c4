#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWindow>
#include <functional>
#include <string>
#include <vector>

namespace vellomar {

// Which files a dialog shows: its name for them, and patterns like "*.json". Without patterns, all of them.
struct FileFilter {
    QString name;
    QStringList patterns;
};

// What the user is asked for.
struct FileQuestion {
    enum class Kind {
        folder,    // an existing one
        folders,   // several existing ones
        files,     // several existing ones
        saveFile,  // one that may exist or not
    };

    Kind kind = Kind::folder;
    QString prompt;           // the dialog's title, and what its button says where that can be set
    QPointer<QWindow> owner;  // the window that the dialog belongs to, if any
    FileFilter filter;        // of files alone
    QString suggestedName;    // of a file to save
};

// Lets the user choose folders and files in a dialog. Interface thread only.
//
// There is one dialog at a time: who asks while one is open is answered at once, with nothing.
class FileChooser {
public:
    // The absolute paths that were chosen, as bytes; empty when the dialog was dismissed.
    using Done = std::function<void(const std::vector<std::string>& paths)>;

    virtual ~FileChooser() = default;

    // Asks and returns at once. `done` is called once, or never when the chooser goes first.
    virtual void choose(const FileQuestion& question, Done done) = 0;

    // The same in words.
    void chooseFolder(const QString& prompt, QWindow* owner, Done done);
    void chooseFolders(const QString& prompt, QWindow* owner, Done done);
    void chooseFiles(const QString& prompt, QWindow* owner, const FileFilter& filter, Done done);
    void chooseSaveFile(const QString& prompt, QWindow* owner, const QString& suggestedName, const FileFilter& filter,
                        Done done);
};

}  // namespace vellomar
