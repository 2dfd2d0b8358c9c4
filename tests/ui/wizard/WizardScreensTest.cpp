#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/TextTable.h"
#include "ui/theme/Symbols.h"
#include "ui/wizard/WizardScreens.h"

namespace vellomar {
namespace {

// A screen begins with "=== step | title | subtitle". A box is "[what it asks for] icon | title", a card "icon | title"
// and behind two blanks what it says; a dot marks the entries of a list.
QStringList expectedScreens() {
    return testing::linesOfTable("wizard.txt");
}

QStringList linesOf(const WizardCard& card) {
    QStringList lines{card.icon + " | " + card.title};
    if (!card.text.isEmpty()) lines << "  " + card.text;
    for (const auto& bullet : card.bullets)
        lines << "  · " + bullet;
    if (!card.actionLabel.isEmpty()) lines << "  [exiftool]";
    return lines;
}

QStringList linesOf(const WizardScreen& screen) {
    QStringList lines{"=== " + QStringList{screen.step, screen.title, screen.subtitle}.join(" | ")};
    const auto box = screen.boxIcon + " | " + screen.boxTitle;
    if (screen.asks == WizardScreen::Asks::sources) lines << "[sources] " + box;
    if (screen.asks == WizardScreen::Asks::destination) lines << "[destination] " + box;
    for (const auto& card : screen.cards)
        lines << linesOf(card);
    if (!screen.note.isEmpty()) lines << "note | " + screen.note;
    return lines;
}

TEST(WizardScreens, AreTheTextsInTheirOrder) {
    const auto screens = wizardScreens({"", "", "https://exiftool.org"});
    ASSERT_EQ(screens.size(), 5);
    QStringList lines;
    for (const auto& screen : screens)
        lines << linesOf(screen);
    EXPECT_EQ(lines, expectedScreens());
}

TEST(WizardScreens, HaveSymbolsThatThereAre) {
    for (const auto& screen : wizardScreens({})) {
        QStringList icons;
        if (screen.asks != WizardScreen::Asks::nothing) icons << screen.boxIcon;
        for (const auto& card : screen.cards)
            icons << card.icon;
        for (const auto& icon : icons)
            EXPECT_NE(iconOf(icon), "") << icon.toStdString();
    }
}

TEST(WizardScreens, OneButtonNamesTheSiteThatItOpens) {
    const auto labels = [](const WebAddresses& addresses) {
        QStringList found;
        for (const auto& screen : wizardScreens(addresses))
            for (const auto& card : screen.cards)
                if (!card.actionLabel.isEmpty()) found << card.title + ": " + card.actionLabel;
        return found;
    };
    EXPECT_EQ(labels({"", "", "https://exiftool.org"}),
              QStringList{"Install ExifTool for best results: Open exiftool.org"});
    EXPECT_EQ(labels({"https://example.org", "https://example.org", ""}), QStringList());
}

}  // namespace
}  // namespace vellomar
