#include "ui/help/Changelog.h"

#include <QVariantMap>

#include "ui/components/CompiledTexts.h"

namespace vellomar {

Changelog::Changelog(QObject* parent)
    : QAbstractListModel(parent), releases_(compiledTexts(QStringLiteral("releases")).toVariantList()) {}

int Changelog::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(releases_.size());
}

QVariant Changelog::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto release = releases_[index.row()].toMap();
    switch (role) {
        case versionRole: return release[QStringLiteral("version")];
        case dateRole: return release[QStringLiteral("date")];
        case isCurrentRole: return index.row() == 0;
        case changesRole: return release[QStringLiteral("changes")];
        default: return {};
    }
}

QHash<int, QByteArray> Changelog::roleNames() const {
    return {{versionRole, "version"}, {dateRole, "date"}, {isCurrentRole, "isCurrent"}, {changesRole, "changes"}};
}

void Changelog::setOpen(bool isOpen) {
    isOpen_ = isOpen;
    emit openChanged();
}

}  // namespace vellomar
