#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include "ui/components/WebAddresses.h"

namespace vellomar {

// Something to read on a screen of the wizard: a text or a list, seldom both, and perhaps a page elsewhere.
struct WizardCard {
    Q_GADGET
    Q_PROPERTY(QString icon MEMBER icon)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QStringList bullets MEMBER bullets)
    Q_PROPERTY(QString actionLabel MEMBER actionLabel)

public:
    QString icon;  // name of a symbol
    QString title;
    QString text;
    QStringList bullets;
    QString actionLabel;  // of the button that opens ExifTool's site; empty for no button
};

// One screen of the wizard, above its cards what is asked for, if anything is.
struct WizardScreen {
    enum class Asks { nothing, sources, destination };

    QString step;  // its place among the steps, in words; empty for the welcome
    QString title;
    QString subtitle;
    Asks asks = Asks::nothing;
    QString boxIcon;   // of the box for what is asked for
    QString boxTitle;  // likewise; that for sources has a place for their number, "%1"
    QList<WizardCard> cards;
    QString note;  // below all
};

// The screens, in their order, as they are compiled in. A card offers no site that has no valid address.
[[nodiscard]] QList<WizardScreen> wizardScreens(const WebAddresses& addresses);

}  // namespace vellomar
