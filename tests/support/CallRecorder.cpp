#include "support/CallRecorder.h"

#include <utility>

namespace vellomar::testing {

class CallRecorder::RecordedOutput final : public OutputFile {
public:
    RecordedOutput(CallRecorder& recorder, std::string path, std::unique_ptr<OutputFile> file)
        : recorder_(recorder), path_(std::move(path)), file_(std::move(file)) {}

    [[nodiscard]] Expected<std::size_t> write(std::span<const std::byte> data) override { return file_->write(data); }
    [[nodiscard]] Expected<void> cloneFrom(InputFile& source) override { return file_->cloneFrom(source); }
    [[nodiscard]] Expected<std::size_t> copyFrom(InputFile& source, std::size_t maxBytes) override {
        return file_->copyFrom(source, maxBytes);
    }
    [[nodiscard]] Expected<void> takeAttributesOf(InputFile& source) override {
        return file_->takeAttributesOf(source);
    }
    [[nodiscard]] Expected<void> sync() override {
        recorder_.record("sync " + path_);
        return file_->sync();
    }
    [[nodiscard]] Expected<void> dropCache() override {
        recorder_.record("dropCache " + path_);
        return file_->dropCache();
    }
    [[nodiscard]] int descriptor() const override { return file_->descriptor(); }

private:
    CallRecorder& recorder_;
    std::string path_;
    std::unique_ptr<OutputFile> file_;
};

Expected<std::unique_ptr<Directory>> CallRecorder::openDirectory(const std::string& path, bool followSymlink) {
    record("list " + path);
    return real().openDirectory(path, followSymlink);
}

Expected<std::unique_ptr<InputFile>> CallRecorder::openForReading(const std::string& path, bool followSymlink) {
    record("read " + path);
    return real().openForReading(path, followSymlink);
}

Expected<std::unique_ptr<OutputFile>> CallRecorder::createFile(const std::string& path, NewFileAccess access) {
    record("create " + path);
    auto created = real().createFile(path, access);
    if (!created) return created;
    return std::make_unique<RecordedOutput>(*this, path, std::move(*created));
}

Expected<void> CallRecorder::rename(const std::string& from, const std::string& to) {
    record("rename " + from + " " + to);
    return real().rename(from, to);
}

Expected<void> CallRecorder::renameWithoutReplacing(const std::string& from, const std::string& to) {
    record("rename " + from + " " + to);
    return real().renameWithoutReplacing(from, to);
}

Expected<void> CallRecorder::removeFile(const std::string& path) {
    record("remove " + path);
    return real().removeFile(path);
}

Expected<void> CallRecorder::removeDirectory(const std::string& path) {
    record("removeDirectory " + path);
    return real().removeDirectory(path);
}

Expected<void> CallRecorder::syncDirectory(const std::string& path) {
    record("syncDirectory " + path);
    return real().syncDirectory(path);
}

std::vector<std::string> CallRecorder::calls() const {
    const std::lock_guard guard(lock_);
    return calls_;
}

void CallRecorder::record(std::string call) {
    const std::lock_guard guard(lock_);
    calls_.push_back(std::move(call));
}

}  // namespace vellomar::testing
