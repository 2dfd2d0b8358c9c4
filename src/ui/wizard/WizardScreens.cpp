#include "ui/wizard/WizardScreens.h"

#include <QJsonObject>
#include <QVariant>

#include "ui/components/CompiledTexts.h"

namespace vellomar {
namespace {

WizardCard cardOf(const QJsonObject& entry, const WebAddresses& addresses) {
    const bool leadsToExifTool = entry[u"action"].toString() == QLatin1String("exifToolSite");
    return {entry[u"icon"].toString(), entry[u"title"].toString(), entry[u"text"].toString(),
            entry[u"bullets"].toVariant().toStringList(),
            leadsToExifTool ? openLabel(addresses.exifToolSite) : QString()};
}

WizardScreen::Asks asked(const QString& name) {
    if (name == QLatin1String("sources")) return WizardScreen::Asks::sources;
    if (name == QLatin1String("destination")) return WizardScreen::Asks::destination;
    return WizardScreen::Asks::nothing;
}

WizardScreen screenOf(const QJsonObject& entry, const WebAddresses& addresses) {
    const auto box = entry[u"box"].toObject();
    WizardScreen screen{entry[u"step"].toString(),
                        entry[u"title"].toString(),
                        entry[u"subtitle"].toString(),
                        asked(box[u"holds"].toString()),
                        box[u"icon"].toString(),
                        box[u"title"].toString(),
                        {},
                        entry[u"note"].toString()};
    for (const auto& card : entry[u"cards"].toArray())
        screen.cards << cardOf(card.toObject(), addresses);
    return screen;
}

}  // namespace

QList<WizardScreen> wizardScreens(const WebAddresses& addresses) {
    QList<WizardScreen> screens;
    for (const auto& entry : compiledTexts(QStringLiteral("wizard")))
        screens << screenOf(entry.toObject(), addresses);
    return screens;
}

}  // namespace vellomar
