// What a failed comparison shows of Qt's values. For every test of what the user sees.
#pragma once

#include <QColor>
#include <QString>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QColor& colour, std::ostream* stream) {
    *stream << colour.name(QColor::HexArgb).toStdString();
}
