#pragma once

#include <QString>
#include <QStringList>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

namespace vellomar::testing {

// The lines of a table in tests/data, by its file's name. Fails the test when there is no such file.
[[nodiscard]] inline QStringList linesOfTable(const std::string& name) {
    std::ifstream file(std::string(TEST_DATA) + "/" + name);
    EXPECT_TRUE(file.is_open()) << name;
    QStringList lines;
    for (std::string line; std::getline(file, line);)
        lines << QString::fromStdString(line);
    return lines;
}

}  // namespace vellomar::testing
