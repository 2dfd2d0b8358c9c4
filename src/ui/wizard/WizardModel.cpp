#include "ui/wizard/WizardModel.h"

#include <QGuiApplication>
#include <QStringList>
#include <utility>

namespace vellomar {

WizardModel::WizardModel(const Surroundings& surroundings, WebAddresses addresses, QObject* parent)
    : QObject(parent),
      surroundings_(surroundings),
      addresses_(std::move(addresses)),
      screens_(wizardScreens(addresses_)) {
    connect(this, &WizardModel::stepChanged, this, &WizardModel::choiceChanged);
    connect(&wizardSources_, &WizardSources::countChanged, this, &WizardModel::choiceChanged);
    connect(&surroundings_.folders, &Folders::changed, this, [this] {
        wizardSources_.setMissing(surroundings_.folders.sources()->missing());
        emit choiceChanged();
    });
}

void WizardModel::open() {
    const auto& entries = surroundings_.folders.sourceList().entries();
    wizardSources_.setPaths(entries.empty() ? std::vector<std::string>() : std::vector{entries.front().path});
    setStep(0);
    isOpen_ = true;
    emit openChanged();
}

void WizardModel::close() {
    surroundings_.folders.dismissRefusal();
    isOpen_ = false;
    emit openChanged();
}

QString WizardModel::positionText() const {
    return tr("%1 of %2").arg(step_ + 1).arg(totalSteps());
}

QString WizardModel::spokenText() const {
    QStringList words{stepText(), title(), subtitle()};
    words.removeAll(QString());
    return words.join(u'\n');
}

QString WizardModel::boxTitle() const {
    return asksForSources() ? screen().boxTitle.arg(wizardSources_.count()) : screen().boxTitle;
}

QVariantList WizardModel::cards() const {
    QVariantList cards;
    for (const auto& card : screen().cards)
        cards << QVariant::fromValue(card);
    return cards;
}

QString WizardModel::forwardText() const {
    if (isLastStep()) return tr("START SORTING");
    return isAnswerMissing() ? tr("Skip →") : tr("Next →");
}

void WizardModel::goForward() {
    if (isLastStep())
        emit completed();
    else
        setStep(step_ + 1);
}

void WizardModel::goBack() {
    if (canGoBack()) setStep(step_ - 1);
}

void WizardModel::skipSetup() {
    emit completed();
}

void WizardModel::pickSources() {
    surroundings_.chooser.chooseFolders(tr("Select"), QGuiApplication::focusWindow(),
                                        [this](const std::vector<std::string>& paths) { addSources(paths); });
}

void WizardModel::dropOnSources(const QList<QUrl>& addresses) {
    addSources(Folders::pathsOf(addresses));
}

void WizardModel::clearSources() {
    wizardSources_.setPaths({});
}

void WizardModel::pickDestination() {
    auto& folders = surroundings_.folders;
    surroundings_.chooser.chooseFolder(
        tr("Select"), QGuiApplication::focusWindow(),
        [&folders](const std::vector<std::string>& paths) { folders.setDestination(paths); });
}

void WizardModel::openExifToolSite() {
    if (!siteName(addresses_.exifToolSite).isEmpty())
        surroundings_.links.openFirst({addresses_.exifToolSite.toStdString()});
}

bool WizardModel::isAnswerMissing() const {
    return (asksForSources() && wizardSourcePath().empty()) ||
           (asksForDestination() && !surroundings_.folders.hasDestination());
}

void WizardModel::setStep(int step) {
    surroundings_.folders.dismissRefusal();
    step_ = step;
    emit stepChanged();
}

void WizardModel::addSources(const std::vector<std::string>& paths) {
    surroundings_.folders.addSources(paths, [this](const std::vector<std::string>& folders) {
        for (const auto& folder : folders)
            wizardSources_.add(folder);
    });
}

}  // namespace vellomar
