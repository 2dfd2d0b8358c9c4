#include "ui/main/Folders.h"

#include <QGuiApplication>
#include <set>
#include <utility>

#include "engine/IntegrityCheck.h"
#include "settings/RecentPaths.h"
#include "settings/SettingsKeys.h"
#include "ui/components/TextFormatters.h"
#include "ui/desktop/FileUri.h"

namespace vellomar {
namespace {

bool isFolder(FileSystem& fileSystem, const std::string& path) {
    if (!path.starts_with('/')) return false;
    const auto status = fileSystem.statusFollowingLinks(path);
    return status && status->type == FileType::directory;
}

struct Sorted {
    std::vector<std::string> folders;
    std::vector<std::string> others;
};

Sorted sorted(FileSystem& fileSystem, const std::vector<std::string>& paths) {
    Sorted result;
    for (const auto& path : paths)
        (isFolder(fileSystem, path) ? result.folders : result.others).push_back(path);
    return result;
}

// What one look at the disk found.
struct Look {
    std::set<std::string> missing;
    std::optional<std::int64_t> freeBytes;
};

Look lookAt(FileSystem& fileSystem, const std::vector<std::string>& paths, const std::string& dest) {
    Look look;
    for (const auto& path : paths)
        if (!isFolder(fileSystem, path)) look.missing.insert(path);
    if (!dest.empty() && !isFolder(fileSystem, dest)) look.missing.insert(dest);
    if (!dest.empty() && !look.missing.contains(dest)) look.freeBytes = availableCapacity(fileSystem, dest);
    return look;
}

QString refusalOf(const std::vector<std::string>& others) {
    if (others.empty()) return {};
    if (others.size() == 1) return Folders::tr("“%1” is not a folder.").arg(displayText(others.front()));
    return Folders::tr("%1 of these are not folders.").arg(others.size());
}

}  // namespace

Folders::Folders(const Surroundings& surroundings, QObject* parent)
    : QObject(parent), surroundings_(surroundings), list_(surroundings.settings), sources_(list_) {
    connect(&sources_, &SourcesModel::countChanged, this, &Folders::sourcesChanged);
}

void Folders::load() {
    sources_.load();
    look();
}

std::string Folders::dest() const {
    return surroundings_.settings.text(keys::kDestPath);
}

QString Folders::destinationName() const {
    return folderName(dest());
}

QString Folders::destinationShortPath() const {
    return shortPath(dest());
}

QString Folders::destinationPath() const {
    return displayText(dest());
}

void Folders::pickSources() {
    surroundings_.chooser.chooseFolders(tr("Select Source Folders"), QGuiApplication::focusWindow(),
                                        [this](const std::vector<std::string>& paths) { addSources(paths); });
}

void Folders::removeSource(int row) {
    sources_.removeAt(row);
}

void Folders::clearSources() {
    sources_.clear();
}

void Folders::pickDestination() {
    surroundings_.chooser.chooseFolder(tr("Select Destination"), QGuiApplication::focusWindow(),
                                       [this](const std::vector<std::string>& paths) { setDestination(paths); });
}

void Folders::clearDestination() {
    auto& settings = surroundings_.settings;
    settings.setValue(keys::kDestPath, "");
    settings.remove(keys::kDestBookmark);
    emit changed();
    look();
}

void Folders::dropOnSources(const QList<QUrl>& addresses) {
    addSources(pathsOf(addresses));
}

void Folders::dropOnDestination(const QList<QUrl>& addresses) {
    setDestination(pathsOf(addresses));
}

void Folders::dismissRefusal() {
    refuse({});
}

void Folders::addSources(std::vector<std::string> paths, Taken taken) {
    sortOut(std::move(paths), [this, taken = std::move(taken)](const auto& folders) {
        takeSources(folders);
        if (taken) taken(folders);
    });
}

void Folders::setDestination(std::vector<std::string> paths) {
    sortOut(std::move(paths), [this](const auto& folders) { takeDestination(folders.front()); });
}

std::vector<std::string> Folders::pathsOf(const QList<QUrl>& addresses) {
    std::vector<std::string> paths;
    for (const auto& address : addresses) {
        auto path = pathOfFileUrl(address);
        paths.push_back(path ? *std::move(path) : address.toEncoded().toStdString());
    }
    return paths;
}

void Folders::look() {
    const auto number = ++looks_;
    auto& fileSystem = surroundings_.fileSystem;
    surroundings_.background.run(
        [&fileSystem, paths = list_.paths(), dest = dest()] { return lookAt(fileSystem, paths, dest); },
        [this, number](Look look) {
            if (number != looks_) return;
            isDestinationMissing_ = look.missing.contains(dest());
            freeBytes_ = look.freeBytes;
            sources_.setMissing(std::move(look.missing));
            emit changed();
        });
}

void Folders::refuse(const QString& why) {
    refusal_ = why;
    emit refusalChanged();
}

void Folders::takeSources(const std::vector<std::string>& folders) {
    for (const auto& folder : folders)
        if (sources_.add(folder)) addRecentSource(surroundings_.settings, folder);
    look();
}

void Folders::takeDestination(const std::string& folder) {
    auto& settings = surroundings_.settings;
    settings.setValue(keys::kDestPath, folder);
    settings.remove(keys::kDestBookmark);
    addRecentDest(settings, folder);
    emit changed();
    look();
}

void Folders::sortOut(std::vector<std::string> paths, Taken take) {
    if (paths.empty()) return;
    auto& fileSystem = surroundings_.fileSystem;
    surroundings_.background.run([&fileSystem, paths = std::move(paths)] { return sorted(fileSystem, paths); },
                                 [this, take = std::move(take)](const Sorted& result) {
                                     refuse(refusalOf(result.others));
                                     if (!result.folders.empty()) take(result.folders);
                                 });
}

}  // namespace vellomar
