#include "ui/options/OptionLabels.h"

#include <QCoreApplication>

namespace vellomar {
namespace {

QString words(const char* text) {
    return QCoreApplication::translate("OptionLabels", text);
}

}  // namespace

QString conflictLabel(ConflictPolicy policy) {
    switch (policy) {
        case ConflictPolicy::skip: return words("Skip");
        case ConflictPolicy::rename: return words("Rename");
        case ConflictPolicy::overwrite: return words("Overwrite");
    }
    return {};
}

QString duplicateActionLabel(DuplicateAction action) {
    switch (action) {
        case DuplicateAction::log: return words("Log Only");
        case DuplicateAction::skip: return words("Skip Duplicate");
        case DuplicateAction::moveToBin: return words("Move to _Duplicates");
    }
    return {};
}

}  // namespace vellomar
