// That no screen asks for a symbol that is not in the table.

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include "ui/confirmation/ConfirmationRows.h"
#include "ui/theme/Symbols.h"

namespace vellomar {
namespace {

struct Use {
    QString file;
    QString symbol;
};

QString contentOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

// What stands in quotes, wherever `lines` say that a line is about a symbol.
std::vector<Use> usesIn(const QString& nameFilter, const QRegularExpression& lines, const QRegularExpression& symbols) {
    std::vector<Use> uses;
    QDirIterator files(VELLOMAR_UI_SOURCES, {nameFilter}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        for (const QString& line : contentOf(path).split(u'\n')) {
            if (!lines.match(line).hasMatch()) continue;
            auto found = symbols.globalMatch(line);
            while (found.hasNext())
                uses.push_back({path, found.next().captured(1)});
        }
    }
    return uses;
}

void expectKnown(const std::vector<Use>& uses) {
    const QStringList known = knownSymbols();
    for (const auto& [file, symbol] : uses)
        EXPECT_TRUE(known.contains(symbol)) << file.toStdString() << ": " << symbol.toStdString();
}

TEST(SymbolsUsed, ThoseOfTheScreensAreInTheTable) {
    const QRegularExpression aboutASymbol(R"(^\s*(?!.*Accessible)(?:property string )?(?:\w*[sS]ymbol|name): )"
                                          "|[{;] *(?:symbol|name): \"");
    const auto uses = usesIn("*.qml", aboutASymbol, QRegularExpression(R"re("([a-z0-9]+(?:\.[a-z0-9]+)*)")re"));
    EXPECT_GT(uses.size(), 8U);
    expectKnown(uses);
}

TEST(SymbolsUsed, ThoseOfRowsAreInTheTable) {
    const auto uses =
        usesIn("*.cpp", QRegularExpression("."), QRegularExpression(R"re([{(]"([a-z]+(?:\.[a-z]+)+)")re"));
    EXPECT_GT(uses.size(), 8U);
    expectKnown(uses);
}

TEST(SymbolsUsed, ThoseBeforeARunAreInTheTable) {
    RunSettings settings{{"/a"}, "/b", {}, RunEstimate{1, 1, 1}, 1};
    auto& options = settings.options;
    options.computeHashForDuplicates = options.verifyAfterCopy = options.keepRawJpegPairs = options.syncFSDates = true;
    std::vector<Use> uses;
    for (const bool moves : {false, true}) {
        options.moveOriginalsWhenReliable = moves;
        for (const auto& row : settingRows(settings, MissingEstimate::told))
            uses.push_back({row.key, row.symbol});
        for (const auto& row : realRunPromises(options))
            uses.push_back({row.text, row.symbol});
    }
    for (const auto& row : dryRunPromises())
        uses.push_back({row.text, row.symbol});
    expectKnown(uses);
}

}  // namespace
}  // namespace vellomar
