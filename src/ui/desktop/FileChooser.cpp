#include "ui/desktop/FileChooser.h"

#include <utility>

namespace vellomar {

using Kind = FileQuestion::Kind;

void FileChooser::chooseFolder(const QString& prompt, QWindow* owner, Done done) {
    choose({.kind = Kind::folder, .prompt = prompt, .owner = owner, .filter = {}, .suggestedName = {}},
           std::move(done));
}

void FileChooser::chooseFolders(const QString& prompt, QWindow* owner, Done done) {
    choose({.kind = Kind::folders, .prompt = prompt, .owner = owner, .filter = {}, .suggestedName = {}},
           std::move(done));
}

void FileChooser::chooseFiles(const QString& prompt, QWindow* owner, const FileFilter& filter, Done done) {
    choose({.kind = Kind::files, .prompt = prompt, .owner = owner, .filter = filter, .suggestedName = {}},
           std::move(done));
}

void FileChooser::chooseSaveFile(const QString& prompt, QWindow* owner, const QString& suggestedName,
                                 const FileFilter& filter, Done done) {
    choose({.kind = Kind::saveFile, .prompt = prompt, .owner = owner, .filter = filter, .suggestedName = suggestedName},
           std::move(done));
}

}  // namespace vellomar
