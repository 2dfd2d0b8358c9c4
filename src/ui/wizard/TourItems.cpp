#include "ui/wizard/TourItems.h"

#include <QJsonObject>
#include <QStringList>
#include <QVariant>

#include "ui/components/CompiledTexts.h"

namespace vellomar {
namespace {

CalloutEdge edgeOf(const QString& name) {
    if (name == QLatin1String("leading")) return CalloutEdge::leading;
    if (name == QLatin1String("trailing")) return CalloutEdge::trailing;
    return CalloutEdge::top;
}

TourItem itemOf(const QJsonObject& entry) {
    return {entry[u"title"].toString(),
            entry[u"description"].toVariant().toStringList().join(u'\n'),
            entry[u"icon"].toString(),
            {entry[u"x"].toDouble(), entry[u"y"].toDouble()},
            edgeOf(entry[u"arrowEdge"].toString()),
            entry[u"area"].toString()};
}

}  // namespace

QList<TourItem> tourItems() {
    QList<TourItem> items;
    for (const auto& entry : compiledTexts(QStringLiteral("tour")))
        items << itemOf(entry.toObject());
    return items;
}

}  // namespace vellomar
