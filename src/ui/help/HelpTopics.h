#pragma once

#include <QList>
#include <QString>

#include "ui/components/WebAddresses.h"

namespace vellomar {

// One page of the manual.
struct HelpTopic {
    QString icon;  // name of a symbol
    QString title;
    QString content;
    QString actionURL;    // empty for no action
    QString actionLabel;  // empty likewise
};

// The manual, in its order, as it is compiled in. An action without a valid address is none.
[[nodiscard]] QList<HelpTopic> helpTopics(const WebAddresses& addresses);

// Whether a topic's title or content holds the text, upper or lower case; all do hold an empty one.
[[nodiscard]] bool isFoundIn(const HelpTopic& topic, const QString& searchText);

}  // namespace vellomar
