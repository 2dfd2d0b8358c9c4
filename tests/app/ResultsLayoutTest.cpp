// The sheets of what a run found, in every state and at the sizes that they have to hold at.
#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "app/LayoutFixture.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::spinUntil;

class ResultsLayoutTest : public testing::LayoutTest {};

// One group of a hundred files with long and odd names and a picture, and many small ones.
void writeDuplicates(const testing::TemporaryFolder& library) {
    library.makeFolder("in/pictures");
    const auto picture = library / "in/pictures/IMG_20100101_100000.jpg";
    ASSERT_EQ(std::system(("convert -size 600x400 plasma:fractal -blur 0x2 '" + picture + "'").c_str()), 0);
    const auto bytes = testing::contentOf(picture);
    library.write("in/pictures/IMG_20100102_100000 " + std::string(200, 'n') + ".jpg", bytes);
    library.write("in/pictures/IMG_20100103_100000 of\ntwo lines\xff.jpg", bytes);
    for (int i = 0; i < 100; ++i)
        library.write("in/pictures/copies/" + std::to_string(i) + "/IMG_20100104_100000.jpg", bytes);
    for (int i = 100; i < 160; ++i)
        for (const char* const name : {"/IMG_20230814_100000.jpg", "/IMG_20230815_100000.jpg"})
            library.write("in/trip " + std::to_string(i) + name, std::to_string(i));
    library.write("in/vanished/IMG_20240101_100000.jpg", "gone");
    library.write("in/vanished/IMG_20240102_100000.jpg", "gone");
}

TEST_P(ResultsLayoutTest, WithDuplicates) {
    writeDuplicates(library);
    keepSources({library / "in"});
    user.settingsFile().open()->setValue("opt_computeHash", true);
    user.start();
    user.dryRun();
    std::filesystem::remove_all(library / "in/vanished");
    look("duplicates-button");
    user.press("DUPES (62)");
    auto& viewer = *user.app().content().duplicates();
    const auto search = [&](const char* text) {
        viewer.setSearchText(text);
        ASSERT_TRUE(spinUntil([&] {
            const auto first = viewer.files()->index(0);
            return !first.isValid() || !first.data(DuplicateFilesModel::sizeRole).toString().isEmpty();
        }));
        window().settle();
    };
    search("2010");
    ASSERT_TRUE(spinUntil([&] {
        return std::ranges::any_of(window().itemsNamed("picture"),
                                   [](const QQuickItem* item) { return item->isVisible() && item->width() == 120; });
    }));
    look("duplicates-one");
    search("");
    look("duplicates-many");
    window().press(Qt::Key_End);
    look("duplicates-last");
    search("trip 120");
    look("duplicates-past-the-list");
    search("nothing like it");
    look("duplicates-none");
}

TEST_P(ResultsLayoutTest, WithVanishedDuplicates) {
    library.write("in/vanished/IMG_20240101_100000.jpg", "gone");
    library.write("in/vanished/IMG_20240102_100000.jpg", "gone");
    keepSources({library / "in"});
    user.settingsFile().open()->setValue("opt_computeHash", true);
    user.start();
    user.dryRun();
    std::filesystem::remove_all(library / "in/vanished");
    user.press("DUPES (1)");
    look("duplicates-vanished");
}

void writeCameraFiles(const testing::TemporaryFolder& library) {
    const auto make = [](const std::string& command) { ASSERT_EQ(std::system(command.c_str()), 0) << command; };
    for (int year = 2018; year < 2024; ++year) {
        const auto file = library / ("in/IMG_" + std::to_string(year) + "0814_100000.jpg");
        library.makeFolder("in");
        make("convert -size 60x40 xc:red '" + file + "'");
        if (year % 3 > 0)
            make("exiftool -q -overwrite_original -Make=FUJIFILM -Model=X100V -DateTimeOriginal='" +
                 std::to_string(year) + ":08:14 10:00:00' '" + file + "'");
    }
    library.write("in/WhatsApp/IMG-20190504-WA0001.png", "no picture");
}

TEST_P(ResultsLayoutTest, WithStatistics) {
    writeCameraFiles(library);
    keepSources({library / "in"});
    user.settingsFile().open()->setValue("opt_includeOther", true);
    user.start();
    user.dryRun();
    user.press("STATS");
    look("statistics");
    user.press("CLOSE");
    for (int i = 0; i < 150; ++i)
        library.write("in/" + std::to_string(1900 + i) + "/x." + std::to_string(i) + std::string(100, 'e'));
    user.dryRun();
    user.press("STATS");
    look("statistics-many");
    window().press(Qt::Key_End);
    look("statistics-end");
}

INSTANTIATE_TEST_SUITE_P(Sizes, ResultsLayoutTest, ::testing::ValuesIn(testing::kWindowSizes), testing::widthOf);

}  // namespace
}  // namespace vellomar
