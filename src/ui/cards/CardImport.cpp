#include "ui/cards/CardImport.h"

#include "platform/Path.h"
#include "tools/CameraCards.h"
#include "ui/components/TextFormatters.h"

namespace vellomar {

void CardImport::offer(const std::string& card) {
    card_ = card;
    isRootSelected_ = false;
    isOpen_ = true;
    emit changed();
}

QString CardImport::volumeName() const {
    return folderName(card_);
}

QString CardImport::selectedPath() const {
    return displayText(selectedFolder());
}

void CardImport::addAsSource() {
    if (!isOpen_) return;
    emit sourceChosen(selectedFolder());
    ignore();
}

void CardImport::ignore() {
    isOpen_ = false;
    emit changed();
}

void CardImport::setRootSelected(bool isSelected) {
    isRootSelected_ = isSelected;
    emit changed();
}

std::string CardImport::selectedFolder() const {
    return isRootSelected_ ? card_ : joinPath(card_, kCameraFolder);
}

}  // namespace vellomar
