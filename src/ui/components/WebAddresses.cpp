#include "ui/components/WebAddresses.h"

#include <QUrl>

namespace vellomar {

WebAddresses WebAddresses::configured() {
    return {QStringLiteral(VELLOMAR_SUPPORT_PAGE), QStringLiteral(VELLOMAR_MAKER_SITE),
            QStringLiteral(VELLOMAR_EXIFTOOL_SITE)};
}

QString siteName(const QString& address) {
    const QUrl url(address, QUrl::StrictMode);
    return url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http") ? url.host() : QString();
}

QString openLabel(const QString& address) {
    const auto site = siteName(address);
    return site.isEmpty() ? QString() : QStringLiteral("Open %1").arg(site);
}

}  // namespace vellomar
