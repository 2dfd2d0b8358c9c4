#include <QColor>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/theme/SymbolImages.h"
#include "ui/theme/Symbols.h"

namespace vellomar {
namespace {

TEST(Symbols, EveryOneHasADrawing) {
    for (const QString& symbol : knownSymbols()) {
        SCOPED_TRACE(symbol.toStdString());
        QFile file(iconOf(symbol));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << iconOf(symbol).toStdString();
        EXPECT_TRUE(file.readAll().contains("<svg"));
    }
}

TEST(Symbols, AnUnknownOneHasNoIcon) {
    EXPECT_EQ(iconOf(u"eye.fil"), QString());
    EXPECT_EQ(iconOf(u""), QString());
    EXPECT_EQ(iconOf(u"zzz"), QString());
}

TEST(SymbolImages, AreDrawnInTheColourAndSizeAskedFor) {
    SymbolImages images;
    QSize size;
    for (const QString& symbol : knownSymbols()) {
        SCOPED_TRACE(symbol.toStdString());
        const QImage image = images.requestImage(symbol + "/ff0000", &size, QSize(24, 24));
        ASSERT_EQ(image.size(), QSize(24, 24));
        bool isRed = false;
        for (int y = 0; y < 24; ++y)
            for (int x = 0; x < 24; ++x)
                isRed |= image.pixelColor(x, y) == QColor(255, 0, 0);
        EXPECT_TRUE(isRed);
    }
}

TEST(SymbolImages, WhatIsUnknownOrHasNoSizeGivesNoImage) {
    SymbolImages images;
    QSize size;
    for (const char* const id : {"nothing/ff0000", "", "eye", "/ff0000"})
        EXPECT_TRUE(images.requestImage(id, &size, QSize(10, 10)).isNull()) << id;
    EXPECT_TRUE(images.requestImage("eye/ff0000", &size, QSize(0, 10)).isNull());
}

}  // namespace
}  // namespace vellomar
