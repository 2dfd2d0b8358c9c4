#pragma once

#include <QMap>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>

namespace vellomar {

// What a file itself tells of a picture.
struct FileFacts {
    std::optional<std::int64_t> size;  // in bytes
    QMap<QString, QString> metadata;   // see richMetadata(); with "Location" where there are coordinates
    QString location;                  // "Lisbon, Lisbon, Portugal", or why there is none
};

// Reads them. Reading may take as long as the disk does; any thread.
class FileFactsReader {
public:
    virtual ~FileFactsReader() = default;
    [[nodiscard]] virtual FileFacts read(const std::string& path) = 0;
};

}  // namespace vellomar
