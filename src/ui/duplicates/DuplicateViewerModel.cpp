#include "ui/duplicates/DuplicateViewerModel.h"

#include <algorithm>

namespace vellomar {

DuplicateViewerModel::DuplicateViewerModel(const Surroundings& surroundings, QObject* parent)
    : QObject(parent),
      state_(surroundings.state),
      groups_(surroundings.state),
      files_({surroundings.state, surroundings.fileSystem, surroundings.reveal, surroundings.runInBackground}) {
    connect(&surroundings.events, &EngineEvents::changed, this, [this](PublishedField field) {
        if (field == PublishedField::duplicateGroups) noteGroups();
    });
}

void DuplicateViewerModel::open() {
    if (!canOpen() || isOpen_) return;
    isOpen_ = true;
    showAnew();
    emit openChanged();
}

void DuplicateViewerModel::dismiss() {
    if (!isOpen_) return;
    isOpen_ = false;
    emit openChanged();
    files_.clear();
    groups_.clear();
    searchText_.clear();
    emit searchTextChanged();
}

void DuplicateViewerModel::setSearchText(const QString& text) {
    if (!isOpen_ || text == searchText_) return;
    searchText_ = text;
    groups_.setSearchText(text);
    // The group that is still the selected one keeps what was found out about its files.
    if (groups_.groupAt(selectedIndex_) != files_.group()) showSelected();
    emit searchTextChanged();
}

void DuplicateViewerModel::select(int index) {
    if (groups_.count() == 0) return;
    const int place = std::clamp(index, 0, groups_.count() - 1);
    if (place == selectedIndex_) return;
    setSelectedIndex(place);
    showSelected();
}

void DuplicateViewerModel::noteGroups() {
    emit totalChanged();
    if (isOpen_) showAnew();
}

// What stood at the selected place is of another run now.
void DuplicateViewerModel::showAnew() {
    groups_.showAnew();
    setSelectedIndex(0);
    files_.readSources();
    showSelected();
}

void DuplicateViewerModel::setSelectedIndex(int index) {
    selectedIndex_ = index;
    emit selectionChanged();
}

void DuplicateViewerModel::showSelected() {
    files_.setGroup(groups_.groupAt(selectedIndex_));
}

}  // namespace vellomar
