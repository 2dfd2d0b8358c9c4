#include "ui/options/NamingChoice.h"

#include <algorithm>
#include <cstddef>

#include "naming/NamingTemplate.h"
#include "settings/OptionSettings.h"
#include "ui/options/NamingStyles.h"

namespace vellomar {
namespace {

constexpr std::string_view kStyleKey = "opt_namingStyle";
constexpr std::string_view kFormatKey = "opt_customFormat";

}  // namespace

NamingChoice::NamingChoice(SettingsStore& settings, QObject* parent) : QObject(parent), settings_(settings) {
    connect(&settings_, &SettingsStore::changed, this, [this](const QString& key) {
        if (const auto name = key.toStdString(); name == kStyleKey || name == kFormatKey) emit changed();
    });
}

QStringList NamingChoice::labels() {
    QStringList labels;
    for (const auto& text : namingStyleTexts())
        labels << text.label;
    return labels;
}

int NamingChoice::chosen() const {
    const auto style = buildOptions(settings_).namingStyle;
    const auto texts = namingStyleTexts();
    return static_cast<int>(std::ranges::find(texts, style, &NamingStyleText::style) - texts.begin());
}

QString NamingChoice::example() const {
    return isCustom() ? preview() : namingStyleTexts()[static_cast<std::size_t>(chosen())].example;
}

QString NamingChoice::description() const {
    return namingStyleTexts()[static_cast<std::size_t>(chosen())].description;
}

bool NamingChoice::isCustom() const {
    return buildOptions(settings_).namingStyle == NamingStyle::custom;
}

QStringList NamingChoice::tokens() {
    return {QStringLiteral("{YYYY}"),  QStringLiteral("{MM}"), QStringLiteral("{DD}"), QStringLiteral("{Month}"),
            QStringLiteral("{HH}"),    QStringLiteral("{mm}"), QStringLiteral("{ss}"), QStringLiteral("{original}"),
            QStringLiteral("{Event}"), QStringLiteral("{ext}")};
}

QString NamingChoice::format() const {
    return QString::fromStdString(buildOptions(settings_).customFormat);
}

QString NamingChoice::preview() const {
    return QString::fromStdString(renderTemplatePreview(buildOptions(settings_).customFormat));
}

void NamingChoice::setFormat(const QString& format) {
    Options options;
    options.customFormat = format.toStdString();
    saveOption(settings_, options, kFormatKey);
}

void NamingChoice::choose(int style) {
    const auto texts = namingStyleTexts();
    if (style < 0 || static_cast<std::size_t>(style) >= texts.size()) return;
    Options options;
    options.namingStyle = texts[static_cast<std::size_t>(style)].style;
    saveOption(settings_, options, kStyleKey);
}

void NamingChoice::append(const QString& text) {
    setFormat(format() + text);
}

void NamingChoice::resetFormat() {
    setFormat(QString::fromLatin1(kDefaultCustomFormat));
}

}  // namespace vellomar
