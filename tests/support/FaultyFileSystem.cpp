#include "support/FaultyFileSystem.h"

#include <algorithm>
#include <csignal>
#include <utility>

#include <unistd.h>

namespace vellomar::testing {
namespace {

using Plan = FaultyFileSystem::Plan;

constexpr std::size_t kBytesTakenBeforeFailure = 3;

class FaultyDirectory final : public Directory {
public:
    FaultyDirectory(std::unique_ptr<Directory> real, std::shared_ptr<Plan> plan)
        : real_(std::move(real)), plan_(std::move(plan)) {}

    [[nodiscard]] Expected<std::optional<Entry>> next() override {
        if (plan_->strikes()) return systemFailure(plan_->errnoValue);
        return real_->next();
    }
    [[nodiscard]] Expected<FileStatus> statusOf(const char* name) override {
        if (plan_->strikes()) return systemFailure(plan_->errnoValue);
        return real_->statusOf(name);
    }
    [[nodiscard]] Expected<FileIdentity> identity() override {
        if (plan_->strikes()) return systemFailure(plan_->errnoValue);
        return real_->identity();
    }

private:
    std::unique_ptr<Directory> real_;
    std::shared_ptr<Plan> plan_;
};

class FaultyInputFile final : public InputFile {
public:
    FaultyInputFile(std::unique_ptr<InputFile> real, std::shared_ptr<Plan> plan)
        : real_(std::move(real)), plan_(std::move(plan)) {}

    [[nodiscard]] Expected<std::size_t> read(std::span<std::byte> buffer) override {
        if (plan_->strikes()) return systemFailure(plan_->errnoValue);
        return real_->read(buffer);
    }
    [[nodiscard]] Expected<FileStatus> status() override {
        if (plan_->strikes()) return systemFailure(plan_->errnoValue);
        return real_->status();
    }
    [[nodiscard]] int descriptor() const override { return real_->descriptor(); }

private:
    std::unique_ptr<InputFile> real_;
    std::shared_ptr<Plan> plan_;
};

class FaultyOutputFile final : public OutputFile {
public:
    FaultyOutputFile(std::unique_ptr<OutputFile> real, std::shared_ptr<Plan> plan)
        : real_(std::move(real)), plan_(std::move(plan)) {}

    [[nodiscard]] Expected<std::size_t> write(std::span<const std::byte> data) override {
        if (!plan_->isDue()) return real_->write(data);
        static_cast<void>(real_->write(data.first(std::min(data.size(), kBytesTakenBeforeFailure))));
        plan_->killIfPlanned();
        return systemFailure(plan_->errnoValue);
    }
    [[nodiscard]] Expected<void> cloneFrom(InputFile& source) override {
        if (plan_->strikes()) return systemFailure(plan_->errnoValue);
        return real_->cloneFrom(source);
    }
    [[nodiscard]] Expected<std::size_t> copyFrom(InputFile& source, std::size_t maxBytes) override {
        if (!plan_->isDue()) return real_->copyFrom(source, maxBytes);
        static_cast<void>(real_->copyFrom(source, kBytesTakenBeforeFailure));
        plan_->killIfPlanned();
        return systemFailure(plan_->errnoValue);
    }
    [[nodiscard]] Expected<void> takeAttributesOf(InputFile& source) override {
        if (plan_->strikes()) return systemFailure(plan_->errnoValue);
        return real_->takeAttributesOf(source);
    }
    [[nodiscard]] Expected<void> sync() override {
        if (plan_->strikes()) return systemFailure(plan_->errnoValue);
        return real_->sync();
    }
    [[nodiscard]] Expected<void> dropCache() override {
        if (plan_->strikes()) return systemFailure(plan_->errnoValue);
        return real_->dropCache();
    }
    [[nodiscard]] int descriptor() const override { return real_->descriptor(); }

private:
    std::unique_ptr<OutputFile> real_;
    std::shared_ptr<Plan> plan_;
};

}  // namespace

bool FaultyFileSystem::Plan::isDue() {
    return ++calls == call;
}

void FaultyFileSystem::Plan::killIfPlanned() const {
    if (fault == Fault::killProcess) ::kill(::getpid(), SIGKILL);
}

bool FaultyFileSystem::Plan::strikes() {
    if (!isDue()) return false;
    killIfPlanned();
    return true;
}

FaultyFileSystem::FaultyFileSystem(FileSystem& real, std::size_t call, Fault fault, int errnoValue)
    : real_(real), plan_(std::make_shared<Plan>()) {
    plan_->call = call;
    plan_->fault = fault;
    plan_->errnoValue = errnoValue;
}

Expected<std::unique_ptr<Directory>> FaultyFileSystem::openDirectory(const std::string& path, bool followSymlink) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    auto opened = real_.openDirectory(path, followSymlink);
    if (!opened) return opened;
    return std::make_unique<FaultyDirectory>(std::move(*opened), plan_);
}

Expected<FileStatus> FaultyFileSystem::status(const std::string& path) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.status(path);
}

Expected<FileStatus> FaultyFileSystem::statusFollowingLinks(const std::string& path) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.statusFollowingLinks(path);
}

Expected<void> FaultyFileSystem::checkAccess(const std::string& path, Access access) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.checkAccess(path, access);
}

Expected<std::unique_ptr<InputFile>> FaultyFileSystem::openForReading(const std::string& path, bool followSymlink) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    auto opened = real_.openForReading(path, followSymlink);
    if (!opened) return opened;
    return std::make_unique<FaultyInputFile>(std::move(*opened), plan_);
}

Expected<std::unique_ptr<OutputFile>> FaultyFileSystem::createFile(const std::string& path, NewFileAccess access) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    auto created = real_.createFile(path, access);
    if (!created) return created;
    return std::make_unique<FaultyOutputFile>(std::move(*created), plan_);
}

Expected<void> FaultyFileSystem::rename(const std::string& from, const std::string& to) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.rename(from, to);
}

Expected<void> FaultyFileSystem::renameWithoutReplacing(const std::string& from, const std::string& to) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.renameWithoutReplacing(from, to);
}

Expected<void> FaultyFileSystem::removeFile(const std::string& path) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.removeFile(path);
}

Expected<void> FaultyFileSystem::removeDirectory(const std::string& path) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.removeDirectory(path);
}

Expected<void> FaultyFileSystem::makeDirectory(const std::string& path) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.makeDirectory(path);
}

Expected<void> FaultyFileSystem::syncDirectory(const std::string& path) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.syncDirectory(path);
}

Expected<bool> FaultyFileSystem::volumeIsLocal(const std::string& path) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.volumeIsLocal(path);
}

Expected<void> FaultyFileSystem::setModificationDate(const std::string& path, Instant date) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.setModificationDate(path, date);
}

Expected<bool> FaultyFileSystem::volumeIsReadOnly(const std::string& path) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.volumeIsReadOnly(path);
}

Expected<std::int64_t> FaultyFileSystem::availableBytes(const std::string& path) {
    if (plan_->strikes()) return systemFailure(plan_->errnoValue);
    return real_.availableBytes(path);
}

}  // namespace vellomar::testing
