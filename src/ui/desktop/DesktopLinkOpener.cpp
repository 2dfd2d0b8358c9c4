#include "ui/desktop/DesktopLinkOpener.h"

#include <QDesktopServices>
#include <QUrl>
#include <utility>

#include "ui/desktop/SchemeProgram.h"

namespace vellomar {

DesktopLinkOpener::DesktopLinkOpener()
    : DesktopLinkOpener(hasProgramForScheme, [](const std::string& uri) {
          QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(uri)));
      }) {}

DesktopLinkOpener::DesktopLinkOpener(HasProgram hasProgram, Open open)
    : hasProgram_(std::move(hasProgram)), open_(std::move(open)) {}

void DesktopLinkOpener::openFirst(const std::vector<std::string>& uris) {
    for (const auto& uri : uris) {
        if (!hasProgram_(uri.substr(0, uri.find(':')))) continue;
        open_(uri);
        return;
    }
}

}  // namespace vellomar
