#pragma once

#include <string>

namespace vellomar {

// How the desktop tells a user who looks elsewhere that something is done. Any thread.
class NotificationService {
public:
    virtual ~NotificationService() = default;

    // Asks whether notifications are wanted, and only then shows one. Returns at once; a refusal or a missing service
    // is silent.
    virtual void notify(const std::string& title, const std::string& body) = 0;
};

}  // namespace vellomar
