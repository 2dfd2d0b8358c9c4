#include <QTest>
#include <algorithm>

#include <gmock/gmock.h>

#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"
#include "ui/QmlWindow.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/RecordingDesktop.h"
#include "ui/duplicates/DuplicateViewerModel.h"
#include "ui/duplicates/DuplicatesForTests.h"
#include "ui/plan/PlanForTests.h"
#include "ui/theme/HexColour.h"
#include "ui/thumbnails/ThumbnailImages.h"

namespace vellomar {
namespace {

using testing::colourOf;
using testing::manyGroups;
using testing::placeOf;
using testing::planRow;
using testing::QmlWindow;

class DuplicateViewerSheetTest : public ::testing::Test {
protected:
    DuplicateViewerSheetTest() {
        window.engine().addImageProvider("thumbnails", new ThumbnailImages([](const std::string&, int size) {
                                             QImage image(size, size, QImage::Format_RGB32);
                                             image.fill(Qt::blue);
                                             return image;
                                         }));
    }

    void open(std::vector<DuplicateGroup> groups) {
        engine.publish(std::move(groups));
        window.show(
            "Item { id: root; property DuplicateViewerModel model; "
            "DuplicateViewerSheet { model: root.model; visible: root.model.isOpen } }",
            {{"model", QVariant::fromValue(&viewer)}});
        viewer.open();
        settle();
    }

    // Texts from the top to the bottom, whatever rows they were used for before.
    [[nodiscard]] QStringList textsFromTop(const char* name) {
        auto items = window.itemsNamed(name);
        std::erase_if(items, [](const QQuickItem* item) { return !item->isVisible(); });
        std::ranges::sort(items, {}, [](const QQuickItem* item) { return placeOf(*item).top(); });
        QStringList texts;
        for (const QQuickItem* const item : items)
            texts += item->property("text").toString();
        return texts;
    }

    // Until nothing more is looked for.
    void settle() {
        window.settle();
        while (work.pending() > 0) {
            work.doAll();
            window.settle();
        }
    }

    void type(const QString& text) {
        window.itemNamed("duplicateSearch").forceActiveFocus();
        for (const QChar character : text) {
            QKeyEvent press(QEvent::KeyPress, 0, {}, QString(character));
            QCoreApplication::sendEvent(&window.window(), &press);
        }
        settle();
    }

    [[nodiscard]] QStringList textsOf(const char* name) {
        QStringList texts;
        for (const QQuickItem* const item : window.itemsNamed(name))
            if (item->isVisible()) texts += item->property("text").toString();
        return texts;
    }

    [[nodiscard]] QQuickItem& button(const QString& name) {
        auto* const found = window.accessible(QAccessible::Button, name);
        if (found == nullptr) throw std::runtime_error("no button " + name.toStdString());
        return *qobject_cast<QQuickItem*>(found->object());
    }

    testing::TemporaryFolder folder;
    testing::PublishedGroups engine;
    LinuxFileSystem fileSystem;
    testing::RecordingReveal reveal;
    testing::HeldWork work;
    DuplicateViewerModel viewer{{engine.state, engine.events, fileSystem, reveal, work.runner()}};
    QmlWindow window{QSize(1440, 900)};
};

TEST_F(DuplicateViewerSheetTest, HasItsHeaderAndFooter) {
    open(manyGroups(12));
    for (const char* const text : {"DUPLICATE VIEWER", "· 12 groups", "GROUPS", "CLOSE", "✕",
                                   "Click REVEAL IN FINDER to inspect files before the real run."})
        EXPECT_TRUE(window.shows(text)) << text;
    EXPECT_EQ(window.itemNamed("sheetSymbol").property("name"), "doc.on.doc.fill");
    EXPECT_EQ(window.itemNamed("sheetSymbol").property("colour").value<QColor>(), hexColour("F5C518"));
    EXPECT_EQ(colourOf(window.itemNamed("sheetTitleNote")), hexColour("909088"));
    EXPECT_EQ(placeOf(window.itemNamed("sheet")).size(), QSizeF(800, 600));
    EXPECT_EQ(colourOf(window.itemNamed("sheetBackground")), hexColour("0A0A0A"));
    EXPECT_EQ(colourOf(window.itemNamed("sheetHeader")), hexColour("111111"));
    EXPECT_EQ(colourOf(window.itemNamed("sheetFooter")), hexColour("111111"));
    const auto& search = window.itemNamed("duplicateSearch");
    EXPECT_EQ(search.width(), 160);
    EXPECT_EQ(search.property("placeholderText"), "Search…");
    auto* const box = window.itemNamed("duplicateSearch").property("background").value<QQuickItem*>();
    EXPECT_EQ(box->property("border").value<QObject*>()->property("color").value<QColor>(), hexColour("2A2A2A"));
    EXPECT_LT(placeOf(window.itemNamed("sheetTitleNote")).right(), placeOf(search).left());
    EXPECT_NEAR(placeOf(search).right(), placeOf(window.itemNamed("sheetClose")).left(), 9) << "beside it";
}

TEST_F(DuplicateViewerSheetTest, AGroupHasItsColours) {
    open({{"/out/a.jpg", {"/out/b.jpg"}}, {"/out/c.jpg", {"/out/d.jpg", "/out/e.jpg"}}});
    EXPECT_EQ(textsOf("groupName"), QStringList({"a.jpg", "c.jpg"}));
    EXPECT_EQ(textsOf("groupCopies"), QStringList({"2 copies", "3 copies"}));
    const auto names = window.itemsNamed("groupName");
    EXPECT_EQ(colourOf(*names[0]), hexColour("E8E8E0"));
    EXPECT_EQ(colourOf(*names[1]), hexColour("909088"));
    EXPECT_EQ(colourOf(window.itemNamed("groupCopies")), hexColour("F5C518"));
    const auto lines = window.itemsNamed("groupLine");
    EXPECT_EQ(lines[0]->height(), 1);
    EXPECT_EQ(colourOf(*lines[0]), hexColour("151515"));
    EXPECT_EQ(colourOf(*lines[0]->parentItem()), hexColour("111100"));
    EXPECT_EQ(colourOf(*lines[1]->parentItem()).alpha(), 0);
    EXPECT_EQ(window.itemNamed("groupsColumn").width(), 220);
    EXPECT_EQ(colourOf(window.itemNamed("groupsColumn")), hexColour("0F0F0F"));
}

TEST_F(DuplicateViewerSheetTest, AFileHasACardWithWhatIsKnownOfIt) {
    const auto kept = folder.write("out/a.jpg", "12345");
    engine.state.previewRows = {planRow("/in/a.jpg", kept)};
    open({{kept, {"/out/gone.jpg"}}});
    EXPECT_EQ(textsOf("cardHeading"), QStringList({"KEEP", "DUPLICATE 1"}));
    const auto headings = window.itemsNamed("cardHeading");
    EXPECT_EQ(colourOf(*headings[0]), hexColour("3D8B5E"));
    EXPECT_EQ(colourOf(*headings[1]), hexColour("FF8C42"));
    EXPECT_EQ(textsOf("factKey"), QStringList({"File", "Dest", "Source", "Size", "Modified",  //
                                               "File", "Dest", "Size", "Modified"}));
    const auto values = textsOf("factValue");
    ASSERT_EQ(values.size(), 9);
    EXPECT_EQ(values.mid(0, 4), QStringList({"a.jpg", QString::fromStdString(kept), "/in/a.jpg", "5 bytes"}));
    EXPECT_NE(values[4], "");
    EXPECT_EQ(values.mid(5), QStringList({"gone.jpg", "/out/gone.jpg", "", ""})) << "it is nowhere";
    const auto& key = window.itemNamed("factKey");
    EXPECT_EQ(key.width(), 55);
    EXPECT_EQ(colourOf(key), hexColour("909088"));
    EXPECT_EQ(colourOf(window.itemNamed("factValue")), hexColour("C0C0B8"));
}

TEST_F(DuplicateViewerSheetTest, TheFileToKeepHasAPicture) {
    const auto kept = folder.write("out/a.jpg", "12345");
    open({{kept, {folder.write("out/b.jpg")}}});
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.itemNamed("picture").isVisible(); }));
    const auto pictures = window.itemsNamed("picture");
    EXPECT_EQ(pictures[0]->size(), QSizeF(120, 120));
    EXPECT_FALSE(pictures[1]->isVisible());
}

TEST_F(DuplicateViewerSheetTest, AClickSelectsAndShowsTheGroup) {
    open(manyGroups(3));
    window.click(*window.itemsNamed("groupName")[2]);
    settle();
    EXPECT_EQ(viewer.selectedIndex(), 2);
    EXPECT_EQ(textsOf("factValue")[0], "IMG_2.jpg");
    EXPECT_EQ(colourOf(*window.itemsNamed("groupName")[2]), hexColour("E8E8E0"));
    window.press(Qt::Key_Up);
    EXPECT_EQ(viewer.selectedIndex(), 1) << "the keys go on from there";
}

TEST_F(DuplicateViewerSheetTest, KeysMoveTheSelectionFromTheStart) {
    open(manyGroups(200));
    EXPECT_EQ(window.focusedName(), "IMG_0.jpg");
    struct Case {
        Qt::Key key;
        int selected;
    };
    for (const auto& [key, selected] :
         {Case{Qt::Key_Down, 1}, Case{Qt::Key_Down, 2}, Case{Qt::Key_Up, 1}, Case{Qt::Key_End, 199},
          Case{Qt::Key_Down, 199}, Case{Qt::Key_Home, 0}, Case{Qt::Key_Up, 0}, Case{Qt::Key_PageUp, 0}}) {
        window.press(key);
        EXPECT_EQ(viewer.selectedIndex(), selected);
        EXPECT_EQ(window.focusedName(), QString("IMG_%1.jpg").arg(selected));
        const auto inSight = placeOf(window.itemNamed("groupList"));
        EXPECT_TRUE(inSight.contains(placeOf(*window.window().activeFocusItem()).center()));
    }
    window.press(Qt::Key_PageDown);
    EXPECT_GT(viewer.selectedIndex(), 5);
    EXPECT_LT(viewer.selectedIndex(), 12);
    settle();
    EXPECT_EQ(textsOf("factValue")[0], window.focusedName());
}

TEST_F(DuplicateViewerSheetTest, ReturnAndEscapeClose) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        open(manyGroups(3));
        ASSERT_TRUE(viewer.isOpen());
        window.press(key);
        EXPECT_FALSE(viewer.isOpen());
    }
    open(manyGroups(3));
    window.click(button("CLOSE"));
    EXPECT_FALSE(viewer.isOpen());
    viewer.open();
    window.settle();
    window.click(button("✕"));
    EXPECT_FALSE(viewer.isOpen());
}

TEST_F(DuplicateViewerSheetTest, TypingSearchesAndResetsNothing) {
    open(manyGroups(30));
    viewer.select(5);
    type("img_12");
    EXPECT_EQ(textsOf("groupName"), QStringList({"IMG_12.jpg"}));
    EXPECT_EQ(viewer.selectedIndex(), 5);
    EXPECT_TRUE(textsOf("cardHeading").isEmpty()) << "the place lies past the list";
    EXPECT_TRUE(window.shows("· 30 groups"));
    EXPECT_FALSE(window.shows("No duplicates found"));
    type("x");
    EXPECT_TRUE(window.shows("No duplicates found"));
    EXPECT_FALSE(window.shows("GROUPS"));
    EXPECT_EQ(window.focusedName(), "Search…");
    window.press(Qt::Key_Return);
    EXPECT_TRUE(viewer.isOpen()) << "who searches does not mean to close";
    window.click(button("Clear search"));
    settle();
    EXPECT_EQ(textsOf("factValue")[0], "IMG_5.jpg");
    window.press(Qt::Key_Return);
    EXPECT_EQ(window.focusedName(), "IMG_5.jpg") << "on to what was found";
}

TEST_F(DuplicateViewerSheetTest, WithNothingFoundItSaysSoInItsColours) {
    open(manyGroups(3));
    viewer.setSearchText("nothing");
    window.settle();
    for (QQuickItem* const text : window.shownTexts())
        if (text->property("text") == "No duplicates found") {
            EXPECT_EQ(colourOf(*text), hexColour("707068"));
        }
    const auto symbols = window.itemsNamed("emptySymbol");
    ASSERT_EQ(symbols.size(), 1);
    EXPECT_EQ(symbols[0]->property("name"), "doc.on.doc");
    EXPECT_EQ(symbols[0]->property("colour").value<QColor>(), hexColour("2A2A2A"));
    EXPECT_EQ(symbols[0]->width(), 36);
    EXPECT_TRUE(window.shows("No duplicates found"));
}

TEST_F(DuplicateViewerSheetTest, RevealsTheFileOfACard) {
    const auto kept = folder.write("out/a.jpg", "12345");
    open({{kept, {"/out/gone.jpg"}}});
    window.click(button("REVEAL IN FINDER"));
    settle();
    EXPECT_THAT(reveal.paths, ::testing::ElementsAre(kept));
    std::vector<QQuickItem*> buttons;
    for (QQuickItem* const box : window.itemsNamed("box"))
        if (box->parentItem()->property("text") == "REVEAL IN FINDER") buttons.push_back(box->parentItem());
    ASSERT_EQ(buttons.size(), 2);
    EXPECT_TRUE(buttons[0]->isEnabled());
    EXPECT_FALSE(buttons[1]->isEnabled()) << "nobody knows where it is";
}

TEST_F(DuplicateViewerSheetTest, TabComesToACardAndTheArrowsGoOnToTheOthers) {
    for (const char* const name : {"a.jpg", "b.jpg", "c.jpg", "d.jpg", "e.jpg"})
        folder.write(std::string("out/") + name);
    const auto out = [this](const char* name) { return folder / (std::string("out/") + name); };
    open({{out("a.jpg"), {out("b.jpg"), out("c.jpg"), out("d.jpg"), out("e.jpg")}}});
    for (int card = 0; card < 5; ++card) {
        window.press(card == 0 ? Qt::Key_Tab : Qt::Key_Down);
        settle();
        EXPECT_EQ(window.focusedName(), "REVEAL IN FINDER");
        window.press(Qt::Key_Space);
        settle();
    }
    EXPECT_THAT(reveal.paths,
                ::testing::ElementsAre(out("a.jpg"), out("b.jpg"), out("c.jpg"), out("d.jpg"), out("e.jpg")));
    window.press(Qt::Key_Tab);
    EXPECT_EQ(window.focusedName(), "CLOSE");
}

TEST_F(DuplicateViewerSheetTest, OnlyRowsInSightExistAndAreLookedFor) {
    DuplicateGroup large{"/out/kept.jpg", {}};
    for (int i = 0; i < 500; ++i)
        large.duplicates.push_back("/out/" + std::to_string(i) + ".jpg");
    auto groups = manyGroups(10'000);
    groups.insert(groups.begin(), std::move(large));
    open(std::move(groups));
    EXPECT_EQ(viewer.groups()->count(), 10'001);
    EXPECT_LT(window.itemsNamed("groupName").size(), 40);
    EXPECT_LT(window.itemsNamed("cardHeading").size(), 15);
    int lookedFor = 0;
    for (int row = 0; row < viewer.files()->count(); ++row)
        if (!viewer.files()->index(row).data(DuplicateFilesModel::canRevealRole).toBool()) ++lookedFor;
    EXPECT_GT(lookedFor, 0);
    EXPECT_LT(lookedFor, 15);
}

TEST_F(DuplicateViewerSheetTest, ScrolledCardsAreLookedForAsTheyComeIntoSight) {
    DuplicateGroup large{"/out/kept.jpg", {}};
    for (std::size_t i = 1; i <= 100; ++i)
        large.duplicates.push_back(folder.write("out/" + std::to_string(i) + ".jpg", std::string(100 + i, 'x')));
    open({large});
    auto& list = window.itemNamed("fileList");
    button("CLOSE").forceActiveFocus();
    window.press(Qt::Key_End);
    settle();
    EXPECT_TRUE(list.property("atYEnd").toBool());
    EXPECT_TRUE(textsOf("factValue").contains("200 bytes"));
    EXPECT_EQ(viewer.files()->index(50).data(DuplicateFilesModel::sizeRole), "") << "it was only passed by";
    window.press(Qt::Key_Home);
    settle();
    EXPECT_TRUE(list.property("atYBeginning").toBool());
    EXPECT_EQ(textsFromTop("cardHeading").first(), "KEEP");
    EXPECT_TRUE(textsOf("factValue").contains("101 bytes"));
}

TEST_F(DuplicateViewerSheetTest, AnotherGroupStartsAtItsBeginning) {
    DuplicateGroup first{"/out/a.jpg", {}};
    for (int i = 0; i < 100; ++i)
        first.duplicates.push_back("/out/" + std::to_string(i) + ".jpg");
    auto second = first;
    second.canonical = "/out/z.jpg";
    open({first, second});
    auto& list = window.itemNamed("fileList");
    QMetaObject::invokeMethod(&list, "positionViewAtEnd");
    settle();
    window.press(Qt::Key_Down);
    settle();
    EXPECT_TRUE(list.property("atYBeginning").toBool());
    EXPECT_EQ(textsFromTop("cardHeading").first(), "KEEP");
    EXPECT_EQ(textsFromTop("factValue").first(), "z.jpg");
}

TEST_F(DuplicateViewerSheetTest, OddNamesBreakNothing) {
    const std::string longName(255, 'W');
    open({{"/out/" + longName, {"/out/two\nlines\xff.jpg"}}, {"/out/two\nlines\xff.jpg", {"/out/b.jpg"}}});
    const auto sheet = placeOf(window.itemNamed("sheet"));
    for (const char* const name : {"factValue", "groupName", "cardHeading"})
        for (const QQuickItem* const item : window.itemsNamed(name)) {
            EXPECT_GE(placeOf(*item).left(), sheet.left()) << name;
            EXPECT_LE(placeOf(*item).right(), sheet.right()) << name;
        }
    EXPECT_EQ(textsOf("groupName")[1], QString("two\u240Alines\uFFFD.jpg"));
    const auto rows = window.itemsNamed("groupLine");
    EXPECT_EQ(rows[0]->parentItem()->height(), rows[1]->parentItem()->height());
    const auto cards = window.itemsNamed("cardHeading");
    EXPECT_GT(placeOf(*cards[1]).top(), placeOf(*window.itemsNamed("factValue")[4]).bottom());
}

TEST_F(DuplicateViewerSheetTest, AScreenReaderHearsGroupsAndCards) {
    const auto kept = folder.write("out/a.jpg", "12345");
    engine.state.previewRows = {planRow("/in/a.jpg", kept)};
    open({{kept, {"/out/gone.jpg"}}});
    EXPECT_NE(window.accessible(QAccessible::List, "GROUPS"), nullptr);
    auto* const group = window.accessible(QAccessible::ListItem, "a.jpg");
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->text(QAccessible::Description), "2 copies");
    EXPECT_TRUE(group->state().selected);
    auto* const card = window.accessible(QAccessible::ListItem, "KEEP: a.jpg");
    ASSERT_NE(card, nullptr);
    const auto description = card->text(QAccessible::Description);
    EXPECT_TRUE(description.startsWith(QString::fromStdString(kept) + ", /in/a.jpg, 5 bytes, "));
    auto* const missing = window.accessible(QAccessible::ListItem, "DUPLICATE 1: gone.jpg");
    ASSERT_NE(missing, nullptr);
    EXPECT_EQ(missing->text(QAccessible::Description), "/out/gone.jpg");
}

TEST_F(DuplicateViewerSheetTest, ANewRunLeavesNothingStale) {
    open(manyGroups(30));
    viewer.select(20);
    settle();
    engine.state = {};
    for (const auto field : {PublishedField::progress, PublishedField::previewRows, PublishedField::duplicateGroups})
        engine.events.fieldChanged(field);
    settle();
    EXPECT_TRUE(viewer.isOpen());
    EXPECT_TRUE(window.shows("No duplicates found"));
    EXPECT_TRUE(window.shows("· 0 groups"));
    EXPECT_NE(window.window().activeFocusItem(), nullptr);
    window.press(Qt::Key_Escape);
    EXPECT_FALSE(viewer.isOpen()) << "the keys still reach the sheet";
}

}  // namespace
}  // namespace vellomar
