#include "ui/components/TextFormatters.h"

#include <QCoreApplication>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "platform/Path.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

constexpr double kThousand = 1'000;
constexpr double kMega = 1'000'000;
constexpr double kGiga = 1'000'000'000;

// A unit above bytes, and to how many places its numbers are rounded.
struct Unit {
    const char* name;
    int places;
};

constexpr std::array kUnits = {Unit{"KB", 0}, Unit{"MB", 1}, Unit{"GB", 2},
                               Unit{"TB", 2}, Unit{"PB", 2}, Unit{"EB", 2}};

double rounded(double value, int places) {
    const double scale = std::pow(10.0, places);
    return std::round(value * scale) / scale;
}

QString withoutTrailingZeros(double value, int places) {
    auto text = QString::number(value, 'f', places);
    if (places == 0) return text;
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.')) text.chop(1);
    return text;
}

// The Unicode picture of a control character.
char32_t pictureOf(char32_t control) {
    constexpr char32_t kPictures = 0x2400;
    constexpr char32_t kDelete = 0x7F;
    constexpr char32_t kPictureOfDelete = 0x2421;
    return control == kDelete ? kPictureOfDelete : kPictures + control;
}

bool isControl(char c) {
    constexpr char kDelete = 0x7F;
    return (c >= 0 && c < ' ') || c == kDelete;
}

std::vector<std::string_view> componentsOf(std::string_view path) {
    std::vector<std::string_view> components;
    while (!path.empty()) {
        const auto end = std::min(path.find('/'), path.size());
        if (end > 0) components.push_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return components;
}

}  // namespace

QString sizeText(std::int64_t bytes) {
    const auto count = static_cast<double>(bytes);
    if (count / kGiga >= 1.0) return QString::asprintf("%.1f GB", count / kGiga);
    return QString::asprintf("%.0f MB", count / kMega);
}

QString byteCountText(std::int64_t bytes) {
    if (bytes == 0) return QCoreApplication::translate("TextFormatters", "Zero KB");
    if (bytes == 1) return QCoreApplication::translate("TextFormatters", "1 byte");
    auto value = static_cast<double>(bytes);
    if (value < kThousand) return QCoreApplication::translate("TextFormatters", "%1 bytes").arg(bytes);
    std::size_t unit = 0;
    value /= kThousand;
    while (unit + 1 < kUnits.size() && rounded(value, kUnits[unit].places) >= kThousand) {
        value /= kThousand;
        ++unit;
    }
    return withoutTrailingZeros(rounded(value, kUnits[unit].places), kUnits[unit].places) + ' ' + kUnits[unit].name;
}

QString percentageText(double fraction) {
    constexpr double kWhole = 100;
    return QString::asprintf("%.0f%%", fraction * kWhole);
}

QString displayText(std::string_view bytes) {
    QString text;
    while (!bytes.empty()) {
        const auto length = utf8CharacterLength(bytes);
        if (length == 0) {
            text += QChar::ReplacementCharacter;
        } else if (isControl(bytes.front())) {
            text += QChar(static_cast<char16_t>(pictureOf(static_cast<unsigned char>(bytes.front()))));
        } else {
            text += QString::fromUtf8(bytes.data(), static_cast<qsizetype>(length));
        }
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
}

QString folderName(std::string_view path) {
    const auto folder = withoutTrailingSlashes(path);
    const auto name = lastPathComponent(folder);
    return displayText(name.empty() ? path : name);
}

QString shortPath(std::string_view path) {
    constexpr std::size_t kMostComponents = 3;
    const auto components = componentsOf(path);
    if (components.size() <= kMostComponents) return displayText(path);
    QString text = QStringLiteral("…");
    for (std::size_t i = components.size() - kMostComponents; i < components.size(); ++i)
        text += '/' + displayText(components[i]);
    return text;
}

}  // namespace vellomar
