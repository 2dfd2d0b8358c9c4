#pragma once

#include <functional>
#include <string>

#include "ui/desktop/LinkOpener.h"

namespace vellomar {

// As the desktop's settings say.
class DesktopLinkOpener final : public LinkOpener {
public:
    using HasProgram = std::function<bool(const std::string& scheme)>;
    using Open = std::function<void(const std::string& uri)>;

    DesktopLinkOpener();
    DesktopLinkOpener(HasProgram hasProgram, Open open);

    void openFirst(const std::vector<std::string>& uris) override;

private:
    const HasProgram hasProgram_;
    const Open open_;
};

}  // namespace vellomar
