#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/cards/CardImport.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CardImportTest : public ::testing::Test {
protected:
    CardImportTest() {
        QObject::connect(&cards, &CardImport::sourceChosen,
                         [this](const std::string& folder) { chosen.push_back(folder); });
    }

    CardImport cards;
    std::vector<std::string> chosen;
};

TEST_F(CardImportTest, OffersTheCamerasFolderFirst) {
    EXPECT_FALSE(cards.isOpen());
    cards.offer("/run/media/jo/EOS_DIGITAL");
    EXPECT_TRUE(cards.isOpen());
    EXPECT_EQ(cards.volumeName(), "EOS_DIGITAL");
    EXPECT_FALSE(cards.isRootSelected());
    EXPECT_EQ(cards.selectedPath(), "/run/media/jo/EOS_DIGITAL/DCIM");
    cards.addAsSource();
    EXPECT_FALSE(cards.isOpen());
    EXPECT_THAT(chosen, ElementsAre("/run/media/jo/EOS_DIGITAL/DCIM"));
}

TEST_F(CardImportTest, TheWholeCardCanBeHad) {
    cards.offer("/run/media/jo/EOS_DIGITAL");
    cards.selectRoot();
    EXPECT_TRUE(cards.isRootSelected());
    EXPECT_EQ(cards.selectedPath(), "/run/media/jo/EOS_DIGITAL");
    cards.selectCameraFolder();
    EXPECT_FALSE(cards.isRootSelected());
    cards.selectRoot();
    cards.addAsSource();
    EXPECT_THAT(chosen, ElementsAre("/run/media/jo/EOS_DIGITAL"));
}

TEST_F(CardImportTest, IgnoringChangesNothing) {
    cards.offer("/media/card");
    cards.ignore();
    EXPECT_FALSE(cards.isOpen());
    cards.addAsSource();
    EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(CardImportTest, ALaterCardTakesTheEarliersPlace) {
    cards.offer("/media/one");
    cards.selectRoot();
    cards.offer("/media/two");
    EXPECT_EQ(cards.volumeName(), "two");
    EXPECT_FALSE(cards.isRootSelected());
}

TEST_F(CardImportTest, OddNamesAreShownOnOneLine) {
    cards.offer("/media/line\nbreak \xff");
    EXPECT_EQ(cards.volumeName(), QStringLiteral("line\u240Abreak \uFFFD"));
    cards.offer("/");
    EXPECT_EQ(cards.volumeName(), "/");
    EXPECT_EQ(cards.selectedPath(), "/DCIM");
}

}  // namespace
}  // namespace vellomar
