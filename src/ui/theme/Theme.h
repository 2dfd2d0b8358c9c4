#pragma once

#include <QColor>
#include <QObject>
#include <QString>

#include <QtQml/qqmlregistration.h>

namespace vellomar {

// The look that all screens share: near-black panels, one signal yellow, small capital labels. What more than one
// screen uses of colours, fonts and distances is here and nowhere else. The same for the whole life of the program.
//
// Colours are opaque sRGB. Distances and sizes are in device-independent pixels.
class Theme : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QColor windowBackground MEMBER windowBackground CONSTANT)
    Q_PROPERTY(QColor sidePanel MEMBER sidePanel CONSTANT)
    Q_PROPERTY(QColor tableHeader MEMBER tableHeader CONSTANT)
    Q_PROPERTY(QColor inset MEMBER inset CONSTANT)
    Q_PROPERTY(QColor hairline MEMBER hairline CONSTANT)
    Q_PROPERTY(QColor edge MEMBER edge CONSTANT)
    Q_PROPERTY(QColor yellow MEMBER yellow CONSTANT)
    Q_PROPERTY(QColor yellowHover MEMBER yellowHover CONSTANT)
    Q_PROPERTY(QColor yellowTint MEMBER yellowTint CONSTANT)
    Q_PROPERTY(QColor rowTint MEMBER rowTint CONSTANT)
    Q_PROPERTY(QColor text MEMBER text CONSTANT)
    Q_PROPERTY(QColor bodyText MEMBER bodyText CONSTANT)
    Q_PROPERTY(QColor brighterBodyText MEMBER brighterBodyText CONSTANT)
    Q_PROPERTY(QColor secondaryText MEMBER secondaryText CONSTANT)
    Q_PROPERTY(QColor dimmerSecondaryText MEMBER dimmerSecondaryText CONSTANT)
    Q_PROPERTY(QColor tertiaryText MEMBER tertiaryText CONSTANT)
    Q_PROPERTY(QColor dimmerTertiaryText MEMBER dimmerTertiaryText CONSTANT)
    Q_PROPERTY(QColor faintText MEMBER faintText CONSTANT)
    Q_PROPERTY(QColor offText MEMBER offText CONSTANT)
    Q_PROPERTY(QColor disabledText MEMBER disabledText CONSTANT)
    Q_PROPERTY(QColor success MEMBER success CONSTANT)
    Q_PROPERTY(QColor logAmber MEMBER logAmber CONSTANT)
    Q_PROPERTY(QColor logRed MEMBER logRed CONSTANT)
    Q_PROPERTY(QColor copyBadge MEMBER copyBadge CONSTANT)
    Q_PROPERTY(QColor skipBadge MEMBER skipBadge CONSTANT)
    Q_PROPERTY(QColor skipText MEMBER skipText CONSTANT)
    Q_PROPERTY(QColor alertRed MEMBER alertRed CONSTANT)
    Q_PROPERTY(QColor alertOrange MEMBER alertOrange CONSTANT)
    Q_PROPERTY(QColor duplicateOrange MEMBER duplicateOrange CONSTANT)
    Q_PROPERTY(QColor duplicateBadge MEMBER duplicateBadge CONSTANT)
    Q_PROPERTY(QColor duplicateRow MEMBER duplicateRow CONSTANT)
    Q_PROPERTY(QColor warningText MEMBER warningText CONSTANT)
    Q_PROPERTY(QColor cameraBar MEMBER cameraBar CONSTANT)
    Q_PROPERTY(QColor brightPanel MEMBER brightPanel CONSTANT)
    Q_PROPERTY(QColor brightEdge MEMBER brightEdge CONSTANT)
    Q_PROPERTY(QColor scrollTrack MEMBER scrollTrack CONSTANT)
    Q_PROPERTY(QColor progressTrack MEMBER progressTrack CONSTANT)
    Q_PROPERTY(QColor popover MEMBER popover CONSTANT)
    Q_PROPERTY(QColor popoverText MEMBER popoverText CONSTANT)
    Q_PROPERTY(QColor errorBar MEMBER errorBar CONSTANT)
    Q_PROPERTY(QColor importedBadge MEMBER importedBadge CONSTANT)
    Q_PROPERTY(QString fontFamily READ fontFamily CONSTANT)

public:
    using QObject::QObject;

    // The one that C++ asks; QML has its own, alike.
    [[nodiscard]] static const Theme& shared();

    // A monospaced face: the one that the package brings, or else the system's.
    [[nodiscard]] static QString fontFamily();

    const QColor windowBackground = hex("0A0A0A");
    const QColor sidePanel = hex("111111");  // footers as well
    const QColor tableHeader = hex("161616");
    const QColor inset = hex("0D0D0D");  // the header bar as well
    const QColor hairline = hex("1E1E1E");
    const QColor edge = hex("2A2A2A");    // the stronger one; disabled icons as well
    const QColor yellow = hex("F5C518");  // the signal; fill of what is primary
    const QColor yellowHover = hex("FFD732");
    const QColor yellowTint = hex("1C1A00");
    const QColor rowTint = hex("111100");  // of a row that is hovered or selected
    const QColor text = hex("E8E8E0");
    const QColor bodyText = hex("B0B0A8");
    const QColor brighterBodyText = hex("C0C0B8");
    const QColor secondaryText = hex("909088");
    const QColor dimmerSecondaryText = hex("888880");
    const QColor tertiaryText = hex("707068");
    const QColor dimmerTertiaryText = hex("555550");
    const QColor faintText = hex("444440");
    const QColor offText = hex("666660");
    const QColor disabledText = hex("505050");
    const QColor success = hex("3D8B5E");
    const QColor logAmber = hex("B8870A");
    const QColor logRed = hex("C0392B");
    const QColor copyBadge = hex("0D1A12");
    const QColor skipBadge = hex("1A0D0D");
    const QColor skipText = hex("7A4040");
    const QColor alertRed = hex("FF4444");
    const QColor alertOrange = hex("FF8C00");
    const QColor duplicateOrange = hex("FF8C42");
    const QColor duplicateBadge = hex("2A1500");
    const QColor duplicateRow = hex("1A0E00");
    const QColor warningText = hex("C8A060");
    const QColor cameraBar = hex("5B9BD5");
    const QColor brightPanel = hex("1C1C1C");
    const QColor brightEdge = hex("323232");
    const QColor scrollTrack = hex("333333");
    const QColor progressTrack = hex("1A1A1A");
    const QColor popover = hex("1A1A1A");
    const QColor popoverText = hex("E0E0DA");
    const QColor errorBar = hex("1A0808");
    const QColor importedBadge = hex("0A1A0A");

private:
    static QColor hex(const char* digits);
};

}  // namespace vellomar
