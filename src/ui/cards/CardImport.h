#pragma once

#include <QObject>
#include <QString>
#include <string>

#include <QtQml/qqmlregistration.h>

namespace vellomar {

// A camera card that was mounted while the program runs: it is offered as a source, once. Interface thread only.
class CardImport : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed)
    Q_PROPERTY(QString volumeName READ volumeName NOTIFY changed)
    Q_PROPERTY(QString selectedPath READ selectedPath NOTIFY changed)
    Q_PROPERTY(bool isRootSelected READ isRootSelected NOTIFY changed)

public:
    using QObject::QObject;

    // Offers the card that is mounted there; takes the place of one that nobody has answered for.
    void offer(const std::string& card);

    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] QString volumeName() const;

    // What would become a source: the camera's folder on the card unless all of it is asked for.
    [[nodiscard]] QString selectedPath() const;
    [[nodiscard]] bool isRootSelected() const { return isRootSelected_; }

    Q_INVOKABLE void selectCameraFolder() { setRootSelected(false); }
    Q_INVOKABLE void selectRoot() { setRootSelected(true); }

    // The answers. Both close the sheet.
    Q_INVOKABLE void addAsSource();
    Q_INVOKABLE void ignore();

signals:
    void changed();
    void sourceChosen(const std::string& folder);

private:
    void setRootSelected(bool isSelected);
    [[nodiscard]] std::string selectedFolder() const;

    std::string card_;
    bool isOpen_ = false;
    bool isRootSelected_ = false;
};

}  // namespace vellomar
