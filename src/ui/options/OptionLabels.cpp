#include "ui/options/OptionLabels.h"

#include <QCoreApplication>

namespace vellomar {
namespace {

QString labelWords(const char* text) {
    return QCoreApplication::translate("OptionLabels", text);
}

}  // namespace

QString conflictLabel(ConflictPolicy policy) {
    switch (policy) {
        case ConflictPolicy::skip: return labelWords("Skip");
        case ConflictPolicy::rename: return labelWords("Rename");
        case ConflictPolicy::overwrite: return labelWords("Overwrite");
    }
    return {};
}

QString duplicateActionLabel(DuplicateAction action) {
    switch (action) {
        case DuplicateAction::log: return labelWords("Log Only");
        case DuplicateAction::skip: return labelWords("Skip Duplicate");
        case DuplicateAction::moveToBin: return labelWords("Move to _Duplicates");
    }
    return {};
}

}  // namespace vellomar
