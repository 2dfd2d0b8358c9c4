#include "ui/main/LogModel.h"

#include <QVariant>
#include <algorithm>
#include <cstddef>
#include <vector>

#include "ui/components/TextFormatters.h"

namespace vellomar {

LogModel::LogModel(const PublishedState& state, const EngineEvents& events, QObject* parent)
    : QAbstractListModel(parent), state_(state) {
    connect(&events, &EngineEvents::linesAdded, this, &LogModel::append);
    connect(&events, &EngineEvents::linesRemoved, this, &LogModel::drop);
    connect(&events, &EngineEvents::changed, this, [this](PublishedField field) {
        if (field == PublishedField::logLines) showAnew();
    });
    showAnew();
}

int LogModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownCount();
}

QVariant LogModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto number = shown_[static_cast<std::size_t>(index.row())];
    // A view may ask for a line while it is told that the line is gone.
    if (number < firstNumber_) return {};
    const auto& text = line(number);
    switch (role) {
        case Qt::DisplayRole:
        case lineRole: return displayText(text);
        case colourRole: return coloursOf(text).text;
        case barColourRole: return coloursOf(text).bar;
        default: return {};
    }
}

QHash<int, QByteArray> LogModel::roleNames() const {
    return {{lineRole, "line"}, {colourRole, "colour"}, {barColourRole, "barColour"}};
}

void LogModel::setFilter(int filter) {
    if (filter == this->filter()) return;
    filter_ = static_cast<LogFilter>(filter);
    showAnew();
    emit filterChanged();
}

std::string LogModel::allText() const {
    std::string text;
    for (const auto& line : state_.logLines)
        text.append(line).append(1, '\n');
    if (!text.empty()) text.pop_back();
    return text;
}

void LogModel::append(int count) {
    const std::uint64_t end = firstNumber_ + state_.logLines.size();
    std::vector<std::uint64_t> added;
    for (auto number = end - static_cast<std::uint64_t>(count); number < end; ++number)
        if (isShown(line(number), filter_)) added.push_back(number);
    emit linesChanged();
    if (added.empty()) return;
    beginInsertRows({}, shownCount(), shownCount() + static_cast<int>(added.size()) - 1);
    shown_.insert(shown_.end(), added.begin(), added.end());
    endInsertRows();
    emit countChanged();
}

void LogModel::drop(int count) {
    firstNumber_ += static_cast<std::uint64_t>(count);
    const auto kept = std::ranges::lower_bound(shown_, firstNumber_);
    if (kept == shown_.begin()) return;
    beginRemoveRows({}, 0, static_cast<int>(kept - shown_.begin()) - 1);
    shown_.erase(shown_.begin(), kept);
    endRemoveRows();
    emit countChanged();
}

void LogModel::showAnew() {
    beginResetModel();
    shown_.clear();
    for (std::size_t i = 0; i < state_.logLines.size(); ++i)
        if (isShown(state_.logLines[i], filter_)) shown_.push_back(firstNumber_ + i);
    endResetModel();
    emit linesChanged();
    emit countChanged();
}

const std::string& LogModel::line(std::uint64_t number) const {
    return state_.logLines[number - firstNumber_];
}

}  // namespace vellomar
