#pragma once

#include <stdexcept>
#include <string>

#include <unistd.h>

namespace vellomar::testing {

// Root may do everything, whatever the permissions say. Until the end of the scope the process is a user who may not,
// and who owns `folder`. Nothing changes for a process that is not root's. Not while other threads touch files.
class ScopedOrdinaryUser {
public:
    explicit ScopedOrdinaryUser(const std::string& folder) : isRoot_(::geteuid() == 0) {
        if (!isRoot_) return;
        if (::chown(folder.c_str(), kNobody, kNobody) != 0 || ::seteuid(kNobody) != 0)
            throw std::runtime_error("cannot become an ordinary user");
    }
    ~ScopedOrdinaryUser() {
        // The process still owns root as its saved user, so this cannot be refused.
        if (isRoot_ && ::seteuid(0) != 0) ::_exit(1);
    }
    ScopedOrdinaryUser(const ScopedOrdinaryUser&) = delete;
    ScopedOrdinaryUser& operator=(const ScopedOrdinaryUser&) = delete;

private:
    static constexpr uid_t kNobody = 65'534;

    bool isRoot_;
};

}  // namespace vellomar::testing
