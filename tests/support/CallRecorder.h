#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "support/ForwardingFileSystem.h"

namespace vellomar::testing {

// Writes down, in order, the calls that make files durable or change what stands under a name: "create PATH",
// "sync PATH", "dropCache PATH", "rename FROM TO", "syncDirectory PATH", "remove PATH", "removeDirectory PATH"; and
// what is read: "read PATH", "list PATH".
class CallRecorder final : public ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<std::unique_ptr<Directory>> openDirectory(const std::string& path,
                                                                     bool followSymlink) override;
    [[nodiscard]] Expected<std::unique_ptr<InputFile>> openForReading(const std::string& path,
                                                                      bool followSymlink) override;
    [[nodiscard]] Expected<std::unique_ptr<OutputFile>> createFile(const std::string& path,
                                                                   NewFileAccess access) override;
    [[nodiscard]] Expected<void> rename(const std::string& from, const std::string& to) override;
    [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& from, const std::string& to) override;
    [[nodiscard]] Expected<void> removeFile(const std::string& path) override;
    [[nodiscard]] Expected<void> removeDirectory(const std::string& path) override;
    [[nodiscard]] Expected<void> syncDirectory(const std::string& path) override;

    // The calls so far, whether they succeeded or not.
    [[nodiscard]] std::vector<std::string> calls() const;

private:
    class RecordedOutput;

    void record(std::string call);

    mutable std::mutex lock_;
    std::vector<std::string> calls_;
};

}  // namespace vellomar::testing
