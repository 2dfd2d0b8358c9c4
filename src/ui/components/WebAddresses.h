#pragma once

#include <QString>

namespace vellomar {

// Pages elsewhere that the program can open. They are set where the build is configured; an empty one is offered
// nowhere.
struct WebAddresses {
    QString supportPage;  // where the maker can be given something
    QString makerSite;
    QString exifToolSite;

    // Those that this program was built with.
    [[nodiscard]] static WebAddresses configured();
};

// An address as it is read out: the host alone, "exiftool.org". Empty for what is no address of the web.
[[nodiscard]] QString siteName(const QString& address);

// What a button says that opens it, "Open exiftool.org". Empty likewise, for no button.
[[nodiscard]] QString openLabel(const QString& address);

}  // namespace vellomar
