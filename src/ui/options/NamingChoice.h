#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <QtQml/qqmlregistration.h>

#include "settings/SettingsStore.h"

namespace vellomar {

// The naming style and, for the custom one, its format. Every change is kept at once. Interface thread only.
class NamingChoice final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(QStringList labels READ labels CONSTANT)
    Q_PROPERTY(int chosen READ chosen NOTIFY changed)
    Q_PROPERTY(QString example READ example NOTIFY changed)
    Q_PROPERTY(QString description READ description NOTIFY changed)
    Q_PROPERTY(bool isCustom READ isCustom NOTIFY changed)
    Q_PROPERTY(QStringList tokens READ tokens CONSTANT)
    Q_PROPERTY(QString format READ format WRITE setFormat NOTIFY changed)
    Q_PROPERTY(QString preview READ preview NOTIFY changed)

public:
    // `settings` must outlive this.
    explicit NamingChoice(SettingsStore& settings, QObject* parent = nullptr);

    // The styles in the order in which they are offered, and which of them is in force, from 0.
    [[nodiscard]] static QStringList labels();
    [[nodiscard]] int chosen() const;

    // What the style in force makes of a file's name, and how it is explained.
    [[nodiscard]] QString example() const;
    [[nodiscard]] QString description() const;
    [[nodiscard]] bool isCustom() const;

    // What a format may hold, in the order in which it is offered.
    [[nodiscard]] static QStringList tokens();

    // The format, as it was typed; and what it makes of a made-up file.
    [[nodiscard]] QString format() const;
    [[nodiscard]] QString preview() const;
    void setFormat(const QString& format);

    // A number that is no style changes nothing.
    Q_INVOKABLE void choose(int style);

    // Puts a token, or whatever text was dropped, at the format's end.
    Q_INVOKABLE void append(const QString& text);

    // The format that it was at first.
    Q_INVOKABLE void resetFormat();

signals:
    void changed();

private:
    SettingsStore& settings_;
};

}  // namespace vellomar
