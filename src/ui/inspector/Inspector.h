#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QVariantList>
#include <cstdint>
#include <string>

#include <QtQml/qqmlregistration.h>

#include "engine/model/PlanRow.h"
#include "ui/desktop/BackgroundWork.h"
#include "ui/desktop/FileReveal.h"
#include "ui/desktop/LinkOpener.h"
#include "ui/inspector/FileFacts.h"
#include "ui/inspector/ParsedDecision.h"

namespace vellomar {

// Explains one row of the plan: why it has its date, what the camera recorded, and where the picture was taken. What is
// read from the file comes a moment after the sheet has opened. Interface thread only.
class Inspector final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the plan")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(int tab READ tab WRITE setTab NOTIFY tabChanged)
    Q_PROPERTY(QString fileName READ fileName NOTIFY rowChanged)
    Q_PROPERTY(QString source READ source NOTIFY rowChanged)
    Q_PROPERTY(QString destination READ destination NOTIFY rowChanged)
    Q_PROPERTY(QUrl thumbnail READ thumbnail NOTIFY rowChanged)
    Q_PROPERTY(QString chosenDate READ chosenDate NOTIFY rowChanged)
    Q_PROPERTY(QString chosenSource READ chosenSource NOTIFY rowChanged)
    Q_PROPERTY(bool isStrong READ isStrong NOTIFY rowChanged)
    Q_PROPERTY(QString explanation READ explanation NOTIFY rowChanged)
    Q_PROPERTY(QVariantList candidates READ candidates NOTIFY rowChanged)
    Q_PROPERTY(bool isReading READ isReading NOTIFY factsChanged)
    Q_PROPERTY(QString fileSize READ fileSize NOTIFY factsChanged)
    Q_PROPERTY(QVariantList cameraRows READ cameraRows NOTIFY factsChanged)
    Q_PROPERTY(bool hasGps READ hasGps NOTIFY factsChanged)
    Q_PROPERTY(QString location READ location NOTIFY factsChanged)
    Q_PROPERTY(QString latitude READ latitude NOTIFY factsChanged)
    Q_PROPERTY(QString longitude READ longitude NOTIFY factsChanged)
    Q_PROPERTY(QString altitude READ altitude NOTIFY factsChanged)
    Q_PROPERTY(bool canOpenMaps READ canOpenMaps NOTIFY factsChanged)

public:
    // What it works with; all of it must outlive it.
    struct Surroundings {
        FileFactsReader& facts;
        FileReveal& reveal;
        LinkOpener& links;
        BackgroundWork& background;
    };

    enum class ExifTab { whyDate, camera, location };
    Q_ENUM(ExifTab)

    explicit Inspector(const Surroundings& surroundings, QObject* parent = nullptr);

    // Shows a row, from the first tab on, and begins to read its file.
    void open(const PlanRow& row);
    Q_INVOKABLE void dismiss();

    [[nodiscard]] bool isOpen() const { return isOpen_; }

    // By its place in ExifTab; a number that is none changes nothing.
    [[nodiscard]] int tab() const { return static_cast<int>(tab_); }
    void setTab(int tab);

    // Texts for reading.
    [[nodiscard]] QString fileName() const;
    [[nodiscard]] QString source() const;
    [[nodiscard]] QString destination() const;
    [[nodiscard]] QUrl thumbnail() const;

    // The date, where it came from, whether it can be trusted, and why it was taken.
    [[nodiscard]] QString chosenDate() const;
    [[nodiscard]] QString chosenSource() const;
    [[nodiscard]] bool isStrong() const { return decision_.isStrong; }
    [[nodiscard]] QString explanation() const;

    // What was considered, best first: maps of "source", "date", "score" (a number) and "share", from 0 to 1.
    [[nodiscard]] QVariantList candidates() const;

    // Whether the file is still being read.
    [[nodiscard]] bool isReading() const { return isReading_; }

    // Empty for a file that cannot be asked.
    [[nodiscard]] QString fileSize() const;

    // Maps of "label" and "value", in the order in which they are shown.
    [[nodiscard]] QVariantList cameraRows() const;

    [[nodiscard]] bool hasGps() const;
    [[nodiscard]] QString location() const;
    [[nodiscard]] QString latitude() const;
    [[nodiscard]] QString longitude() const;
    [[nodiscard]] QString altitude() const;  // empty for none

    [[nodiscard]] bool canOpenMaps() const;
    Q_INVOKABLE void openInMaps();

    // Shows the source file where it lies.
    Q_INVOKABLE void revealSource();

signals:
    void openChanged();
    void tabChanged();
    void rowChanged();
    void factsChanged();

private:
    void take(FileFacts facts);

    Surroundings surroundings_;
    bool isOpen_ = false;
    ExifTab tab_ = ExifTab::whyDate;
    PlanRow row_;
    ParsedDecision decision_;
    bool isReading_ = false;
    FileFacts facts_;
    std::uint64_t opening_ = 0;  // what was read for an earlier one comes too late
};

}  // namespace vellomar
