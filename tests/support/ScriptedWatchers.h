// Watches whose news a test makes up.
#pragma once

#include <cerrno>
#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/watch/FolderWatcher.h"
#include "platform/watch/MountWatcher.h"

namespace vellomar::testing {

class ScriptedFolderWatcher final : public FolderWatcher {
public:
    [[nodiscard]] Expected<std::unique_ptr<FolderWatch>> watch(const std::string& folder, Deliver deliver) override {
        ++asked_;
        if (isRefusing) return systemFailure(EMFILE);
        folder_ = folder;
        deliver_ = std::move(deliver);
        return std::make_unique<Watch>(*this);
    }

    // Nothing happens while nobody watches.
    void tell(std::vector<std::string> paths,
              std::chrono::steady_clock::time_point since = std::chrono::steady_clock::now()) {
        if (watches_ > 0) deliver_({std::move(paths), since});
    }

    // The same, of what a watch that is over by now was about to tell.
    void tellTooLate(std::vector<std::string> paths) { deliver_({std::move(paths), {}}); }

    [[nodiscard]] const std::string& folder() const { return folder_; }
    [[nodiscard]] int watches() const { return watches_; }
    [[nodiscard]] int asked() const { return asked_; }

    bool isRefusing = false;

private:
    class Watch final : public FolderWatch {
    public:
        explicit Watch(ScriptedFolderWatcher& owner) : owner_(owner) { ++owner_.watches_; }
        ~Watch() override { --owner_.watches_; }
        Watch(const Watch&) = delete;
        Watch& operator=(const Watch&) = delete;

    private:
        ScriptedFolderWatcher& owner_;
    };

    std::string folder_;
    Deliver deliver_;
    int watches_ = 0;
    int asked_ = 0;
};

class ScriptedMountWatcher final : public MountWatcher {
public:
    [[nodiscard]] Expected<std::unique_ptr<MountWatch>> watch(Deliver deliver) override {
        if (isRefusing) return systemFailure(EMFILE);
        deliver_ = std::move(deliver);
        return std::make_unique<MountWatch>();
    }

    void mount(const std::string& path, const std::string& type = "vfat") {
        deliver_({.key = path, .device = {}, .path = path, .type = type, .source = {}});
    }

    bool isRefusing = false;

private:
    Deliver deliver_;
};

}  // namespace vellomar::testing
