#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QVariantList>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "ui/components/WebAddresses.h"
#include "ui/desktop/FileChooser.h"
#include "ui/desktop/LinkOpener.h"
#include "ui/main/Folders.h"
#include "ui/wizard/WizardScreens.h"
#include "ui/wizard/WizardSources.h"

namespace vellomar {

// The way of a new user through the first settings: a welcome, sources, destination, copy or move, and what to do next.
// Folders become sources and destination as they are chosen, not at the end. Interface thread only.
class WizardModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(int step READ step NOTIFY stepChanged)
    Q_PROPERTY(int totalSteps READ totalSteps CONSTANT)
    Q_PROPERTY(QString positionText READ positionText NOTIFY stepChanged)
    Q_PROPERTY(double fraction READ fraction NOTIFY stepChanged)
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY stepChanged)
    Q_PROPERTY(QString stepText READ stepText NOTIFY stepChanged)
    Q_PROPERTY(QString title READ title NOTIFY stepChanged)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY stepChanged)
    Q_PROPERTY(QString spokenText READ spokenText NOTIFY stepChanged)
    Q_PROPERTY(bool isWelcome READ isWelcome NOTIFY stepChanged)
    Q_PROPERTY(bool asksForSources READ asksForSources NOTIFY stepChanged)
    Q_PROPERTY(bool asksForDestination READ asksForDestination NOTIFY stepChanged)
    Q_PROPERTY(QString boxIcon READ boxIcon NOTIFY stepChanged)
    Q_PROPERTY(QString boxTitle READ boxTitle NOTIFY choiceChanged)
    Q_PROPERTY(QVariantList cards READ cards NOTIFY stepChanged)
    Q_PROPERTY(QString note READ note NOTIFY stepChanged)
    Q_PROPERTY(QString forwardText READ forwardText NOTIFY choiceChanged)
    Q_PROPERTY(vellomar::WizardSources* wizardSources READ wizardSources CONSTANT)
    Q_PROPERTY(vellomar::Folders* folders READ folders CONSTANT)

public:
    // What it works with; all of it must outlive it.
    struct Surroundings {
        Folders& folders;
        FileChooser& chooser;
        LinkOpener& links;
    };

    explicit WizardModel(const Surroundings& surroundings, WebAddresses addresses = WebAddresses::configured(),
                         QObject* parent = nullptr);

    [[nodiscard]] bool isOpen() const { return isOpen_; }

    // Begins at the welcome, with the first of the sources if there are some.
    void open();
    void close();

    // From 0; always one that there is.
    [[nodiscard]] int step() const { return step_; }
    [[nodiscard]] int totalSteps() const { return static_cast<int>(screens_.size()); }
    [[nodiscard]] QString positionText() const;
    // How much of the way is done with this step, from 0 to 1.
    [[nodiscard]] double fraction() const { return (step_ + 1.0) / totalSteps(); }
    [[nodiscard]] bool canGoBack() const { return step_ > 0; }

    // What the screen shows.
    [[nodiscard]] QString stepText() const { return screen().step; }
    [[nodiscard]] QString title() const { return screen().title; }
    [[nodiscard]] QString subtitle() const { return screen().subtitle; }
    // The same for a screen reader.
    [[nodiscard]] QString spokenText() const;
    [[nodiscard]] bool isWelcome() const { return step_ == 0; }
    [[nodiscard]] bool asksForSources() const { return screen().asks == WizardScreen::Asks::sources; }
    [[nodiscard]] bool asksForDestination() const { return screen().asks == WizardScreen::Asks::destination; }
    [[nodiscard]] QString boxIcon() const { return screen().boxIcon; }
    [[nodiscard]] QString boxTitle() const;
    [[nodiscard]] QVariantList cards() const;  // of WizardCard
    [[nodiscard]] QString note() const { return screen().note; }

    [[nodiscard]] WizardSources* wizardSources() { return &wizardSources_; }
    // The first of them; empty for none.
    [[nodiscard]] std::string wizardSourcePath() const { return wizardSources_.firstPath(); }
    // Where the destination is found.
    [[nodiscard]] Folders* folders() { return &surroundings_.folders; }

    // What the button at the right says: it skips what is asked for and not given, and completes behind the last
    // screen.
    [[nodiscard]] QString forwardText() const;
    Q_INVOKABLE void goForward();
    Q_INVOKABLE void goBack();

    // Completes at once.
    Q_INVOKABLE void skipSetup();

    // Has folders chosen, several at once; those that are not listed yet are, and become sources. The same for what is
    // dropped. Taking folders out of the list leaves them sources.
    Q_INVOKABLE void pickSources();
    Q_INVOKABLE void dropOnSources(const QList<QUrl>& addresses);
    Q_INVOKABLE void clearSources();

    Q_INVOKABLE void pickDestination();

    Q_INVOKABLE void openExifToolSite();

signals:
    void openChanged();
    void stepChanged();
    void choiceChanged();
    void completed();

private:
    [[nodiscard]] const WizardScreen& screen() const { return screens_[step_]; }
    [[nodiscard]] bool isLastStep() const { return step_ == totalSteps() - 1; }
    [[nodiscard]] bool isAnswerMissing() const;
    void setStep(int step);
    void addSources(const std::vector<std::string>& paths);

    Surroundings surroundings_;
    const WebAddresses addresses_;
    const QList<WizardScreen> screens_;
    WizardSources wizardSources_;
    int step_ = 0;
    bool isOpen_ = false;
};

}  // namespace vellomar
