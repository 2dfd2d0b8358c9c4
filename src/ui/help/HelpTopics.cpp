#include "ui/help/HelpTopics.h"

#include <QJsonObject>
#include <QStringList>
#include <QVariant>

#include "ui/components/CompiledTexts.h"

namespace vellomar {
namespace {

HelpTopic topicOf(const QJsonObject& entry, const WebAddresses& addresses) {
    HelpTopic topic{entry[u"icon"].toString(),
                    entry[u"title"].toString(),
                    entry[u"content"].toVariant().toStringList().join(u'\n'),
                    {},
                    {}};
    const bool leadsToExifTool = entry[u"action"].toString() == QLatin1String("exifToolSite");
    if (leadsToExifTool) topic.actionLabel = openLabel(addresses.exifToolSite);
    if (!topic.actionLabel.isEmpty()) topic.actionURL = addresses.exifToolSite;
    return topic;
}

}  // namespace

QList<HelpTopic> helpTopics(const WebAddresses& addresses) {
    QList<HelpTopic> topics;
    for (const auto& entry : compiledTexts(QStringLiteral("help")))
        topics << topicOf(entry.toObject(), addresses);
    return topics;
}

bool isFoundIn(const HelpTopic& topic, const QString& searchText) {
    const auto sought = searchText.toLower();
    return topic.title.toLower().contains(sought) || topic.content.toLower().contains(sought);
}

}  // namespace vellomar
