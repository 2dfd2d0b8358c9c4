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
        QObject::connect(&cards_, &CardImport::sourceChosen,
                         [this](const std::string& folder) { chosen_.push_back(folder); });
    }

    CardImport cards_;
    std::vector<std::string> chosen_;
};

TEST_F(CardImportTest, OffersTheCamerasFolderFirst) {
    EXPECT_FALSE(cards_.isOpen());
    cards_.offer("/run/media/jo/EOS_DIGITAL");
    EXPECT_TRUE(cards_.isOpen());
    EXPECT_EQ(cards_.volumeName(), "EOS_DIGITAL");
    EXPECT_FALSE(cards_.isRootSelected());
    EXPECT_EQ(cards_.selectedPath(), "/run/media/jo/EOS_DIGITAL/DCIM");
    cards_.addAsSource();
    EXPECT_FALSE(cards_.isOpen());
    EXPECT_THAT(chosen_, ElementsAre("/run/media/jo/EOS_DIGITAL/DCIM"));
}

TEST_F(CardImportTest, TheWholeCardCanBeHad) {
    cards_.offer("/run/media/jo/EOS_DIGITAL");
    cards_.selectRoot();
    EXPECT_TRUE(cards_.isRootSelected());
    EXPECT_EQ(cards_.selectedPath(), "/run/media/jo/EOS_DIGITAL");
    cards_.selectCameraFolder();
    EXPECT_FALSE(cards_.isRootSelected());
    cards_.selectRoot();
    cards_.addAsSource();
    EXPECT_THAT(chosen_, ElementsAre("/run/media/jo/EOS_DIGITAL"));
}

TEST_F(CardImportTest, IgnoringChangesNothing) {
    cards_.offer("/media/card");
    cards_.ignore();
    EXPECT_FALSE(cards_.isOpen());
    cards_.addAsSource();
    EXPECT_THAT(chosen_, IsEmpty());
}

TEST_F(CardImportTest, ALaterCardTakesTheEarliersPlace) {
    cards_.offer("/media/one");
    cards_.selectRoot();
    cards_.offer("/media/two");
    EXPECT_EQ(cards_.volumeName(), "two");
    EXPECT_FALSE(cards_.isRootSelected());
}

TEST_F(CardImportTest, OddNamesAreShownOnOneLine) {
    cards_.offer("/media/line\nbreak \xff");
    EXPECT_EQ(cards_.volumeName(), QStringLiteral("line\u240Abreak \uFFFD"));
    cards_.offer("/");
    EXPECT_EQ(cards_.volumeName(), "/");
    EXPECT_EQ(cards_.selectedPath(), "/DCIM");
}

}  // namespace
}  // namespace vellomar
