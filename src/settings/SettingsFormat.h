#pragma once

#include <QSettings>

namespace vellomar {

// The form of our settings file: one JSON object, each member a setting. Unlike the forms that Qt knows it keeps a
// setting's type, and names of files that are not UTF-8. In a QSettings of this form every value is a Json (see
// platform/BytesJson.h), so that what a newer version has written is kept as it is. Any thread.
[[nodiscard]] QSettings::Format settingsFormat();

}  // namespace vellomar
