#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "platform/FileSystem.h"
#include "settings/SettingsStore.h"
#include "settings/SourceList.h"
#include "ui/desktop/BackgroundWork.h"
#include "ui/desktop/FileChooser.h"
#include "ui/main/SourcesModel.h"

namespace vellomar {

// The folders that a run goes from and to: picking, dropping, taking out, and whether they are there. Interface thread
// only; the disk is looked at elsewhere.
class Folders final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(vellomar::SourcesModel* sources READ sources CONSTANT)
    Q_PROPERTY(bool hasDestination READ hasDestination NOTIFY changed)
    Q_PROPERTY(QString destinationName READ destinationName NOTIFY changed)
    Q_PROPERTY(QString destinationShortPath READ destinationShortPath NOTIFY changed)
    Q_PROPERTY(QString destinationPath READ destinationPath NOTIFY changed)
    Q_PROPERTY(bool isDestinationMissing READ isDestinationMissing NOTIFY changed)
    Q_PROPERTY(QString refusal READ refusal NOTIFY refusalChanged)

public:
    // What it works with; all of it must outlive it.
    struct Surroundings {
        SettingsStore& settings;
        FileSystem& fileSystem;
        FileChooser& chooser;
        BackgroundWork& background;
    };

    explicit Folders(const Surroundings& surroundings, QObject* parent = nullptr);

    // Reads the lists, once, at the start.
    void load();

    [[nodiscard]] SourcesModel* sources() { return &sources_; }
    [[nodiscard]] const SourceList& sourceList() const { return list_; }

    // The destination's path; empty where none is set.
    [[nodiscard]] std::string dest() const;
    [[nodiscard]] bool hasDestination() const { return !dest().empty(); }
    [[nodiscard]] QString destinationName() const;
    [[nodiscard]] QString destinationShortPath() const;
    [[nodiscard]] QString destinationPath() const;

    // Whether it was not to be found at the last look.
    [[nodiscard]] bool isDestinationMissing() const { return hasDestination() && isDestinationMissing_; }

    // Room on the destination's volume at the last look, in bytes; nothing where it is not known.
    [[nodiscard]] std::optional<std::int64_t> freeBytes() const { return freeBytes_; }

    // Why what was dropped or picked last was not taken; empty if it was.
    [[nodiscard]] QString refusal() const { return refusal_; }

    Q_INVOKABLE void pickSources();
    Q_INVOKABLE void removeSource(int row);
    Q_INVOKABLE void clearSources();
    Q_INVOKABLE void pickDestination();
    Q_INVOKABLE void clearDestination();

    // What was dropped, as the addresses ("file:///...") that a drop carries. Of several folders the first becomes the
    // destination.
    Q_INVOKABLE void dropOnSources(const QList<QUrl>& addresses);
    Q_INVOKABLE void dropOnDestination(const QList<QUrl>& addresses);

    Q_INVOKABLE void dismissRefusal();

    // Adds a source without a look at the disk, unless it is one already.
    void addSource(const std::string& path) { takeSources({path}); }

    // Takes folders, those of them that are sources already included.
    using Taken = std::function<void(const std::vector<std::string>& folders)>;

    // Adds folders, as far as they are some; `taken` is told of those, later, and not at all if there are none. The
    // same for the destination, which is the first of them.
    void addSources(std::vector<std::string> paths, Taken taken = {});
    void setDestination(std::vector<std::string> paths);

    // What a drop's addresses stand for. An address elsewhere than on this machine stays as it is: no path, and so no
    // folder.
    [[nodiscard]] static std::vector<std::string> pathsOf(const QList<QUrl>& addresses);

    // Looks anew which folders are there and how much room there is. Returns at once; the answer is told by changed().
    void look();

signals:
    void changed();
    void sourcesChanged();
    void refusalChanged();

private:
    void refuse(const QString& why);
    void takeSources(const std::vector<std::string>& folders);
    void takeDestination(const std::string& folder);
    // Calls `take` with those of `paths` that are folders, and tells of the others.
    void sortOut(std::vector<std::string> paths, Taken take);

    Surroundings surroundings_;
    SourceList list_;
    SourcesModel sources_;
    bool isDestinationMissing_ = false;
    std::optional<std::int64_t> freeBytes_;
    std::uint64_t looks_ = 0;
    QString refusal_;
};

}  // namespace vellomar
