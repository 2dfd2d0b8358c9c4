#include "ui/help/Help.h"

#include <utility>

namespace vellomar {

Help::Help(LinkOpener& links, WebAddresses addresses, QObject* parent)
    : QAbstractListModel(parent), links_(links), addresses_(std::move(addresses)), topics_(helpTopics(addresses_)) {
    search();
}

void Help::open() {
    selected_.reset();
    searchText_.clear();
    search();
    isOpen_ = true;
    emit searchTextChanged();
    emit openChanged();
}

void Help::dismiss() {
    isOpen_ = false;
    emit openChanged();
}

void Help::setSearchText(const QString& text) {
    if (text == searchText_) return;
    searchText_ = text;
    search();
    emit searchTextChanged();
}

void Help::select(int row) {
    if (row < 0 || row >= rowCount()) return;
    selected_ = found_[row];
    emit dataChanged(index(0), index(rowCount() - 1), {isShownRole});
    emit readingChanged();
}

int Help::shownRow() const {
    const auto topic = shownTopic();
    return topic ? static_cast<int>(found_.indexOf(*topic)) : -1;
}

void Help::openAction() {
    if (const auto topic = shown(); !topic.actionURL.isEmpty()) links_.openFirst({topic.actionURL.toStdString()});
}

void Help::openSupportPage() {
    if (hasSupportPage()) links_.openFirst({addresses_.supportPage.toStdString()});
}

void Help::openMakerSite() {
    if (!makerSite().isEmpty()) links_.openFirst({addresses_.makerSite.toStdString()});
}

int Help::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(found_.size());
}

QVariant Help::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto topic = found_[index.row()];
    switch (role) {
        case iconRole: return topics_[topic].icon;
        case titleRole: return topics_[topic].title;
        case isShownRole: return topic == shownTopic();
        default: return {};
    }
}

QHash<int, QByteArray> Help::roleNames() const {
    return {{iconRole, "icon"}, {titleRole, "title"}, {isShownRole, "isShown"}};
}

HelpTopic Help::shown() const {
    const auto topic = shownTopic();
    return topic && hasTopic() ? topics_[*topic] : HelpTopic();
}

std::optional<qsizetype> Help::shownTopic() const {
    if (selected_ || found_.isEmpty()) return selected_;
    return found_.front();
}

void Help::search() {
    beginResetModel();
    found_.clear();
    for (qsizetype topic = 0; topic < topics_.size(); ++topic)
        if (isFoundIn(topics_[topic], searchText_)) found_ << topic;
    endResetModel();
    emit readingChanged();
}

}  // namespace vellomar
