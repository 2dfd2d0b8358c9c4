#pragma once

#include <cerrno>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/FileSystem.h"

namespace vellomar::testing {

// File dates and listings from tables, creation dates included, which no test can give a real file. Remembers what it
// was asked. Whatever a decision has no business to do fails the test.
class PretendFileSystem final : public FileSystem {
public:
    std::map<std::string, FileStatus> statuses;
    std::map<std::string, std::vector<std::string>> listings;  // names by folder
    bool listingsBreakOff = false;                             // a listing fails where its end should come
    std::vector<std::string> calls;                            // operation, a blank, path

    void setDates(const std::string& path, std::optional<Instant> created, Instant modified) {
        auto& status = statuses[path];
        status.type = FileType::regular;
        status.modified = modified;
        status.created = created;
    }

    Expected<std::unique_ptr<Directory>> openDirectory(const std::string& path, bool) override {
        calls.push_back("list " + path);
        const auto found = listings.find(path);
        if (found == listings.end()) return systemFailure(ENOENT);
        return std::make_unique<Listing>(found->second, listingsBreakOff);
    }
    Expected<FileStatus> status(const std::string& path) override {
        calls.push_back("status " + path);
        const auto found = statuses.find(path);
        if (found == statuses.end()) return systemFailure(ENOENT);
        return found->second;
    }

    Expected<FileStatus> statusFollowingLinks(const std::string&) override { return uncalledFor(); }
    Expected<void> checkAccess(const std::string&, Access) override { return uncalledFor(); }
    Expected<std::unique_ptr<InputFile>> openForReading(const std::string&, bool) override { return uncalledFor(); }
    Expected<std::unique_ptr<OutputFile>> createFile(const std::string&, NewFileAccess) override {
        return uncalledFor();
    }
    Expected<void> rename(const std::string&, const std::string&) override { return uncalledFor(); }
    Expected<void> renameWithoutReplacing(const std::string&, const std::string&) override { return uncalledFor(); }
    Expected<void> removeFile(const std::string&) override { return uncalledFor(); }
    Expected<void> removeDirectory(const std::string&) override { return uncalledFor(); }
    Expected<void> makeDirectory(const std::string&) override { return uncalledFor(); }
    Expected<void> syncDirectory(const std::string&) override { return uncalledFor(); }
    Expected<bool> volumeIsLocal(const std::string&) override { return uncalledFor(); }
    Expected<void> setModificationDate(const std::string&, Instant) override { return uncalledFor(); }
    Expected<bool> volumeIsReadOnly(const std::string&) override { return uncalledFor(); }
    Expected<std::int64_t> availableBytes(const std::string&) override { return uncalledFor(); }

private:
    class Listing final : public Directory {
    public:
        Listing(std::vector<std::string> names, bool breaksOff) : names_(std::move(names)), breaksOff_(breaksOff) {}

        Expected<std::optional<Entry>> next() override {
            if (at_ < names_.size()) return Entry{names_[at_++].c_str(), std::nullopt};
            if (breaksOff_) return systemFailure(EIO);
            return std::nullopt;
        }
        Expected<FileStatus> statusOf(const char*) override { return uncalledFor(); }
        Expected<FileIdentity> identity() override { return uncalledFor(); }

    private:
        std::vector<std::string> names_;
        bool breaksOff_;
        std::size_t at_ = 0;
    };

    static tl::unexpected<Error> uncalledFor() {
        ADD_FAILURE() << "a decision only looks at dates and names";
        return systemFailure(ENOSYS);
    }
};

}  // namespace vellomar::testing
