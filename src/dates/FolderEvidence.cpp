#include "dates/FolderEvidence.h"

#include "platform/LocalTime.h"

namespace vellomar {
namespace {

FolderEvidence evidenceOf(const FolderQuestion& question) {
    return {meaningfulFolders(question.relativeFolder, question.rules, question.secretFloppyMode),
            folderYearMonth(question.relativeFolder, question.parseMonthWords, question.now)};
}

}  // namespace

bool FolderEvidenceCache::Remembered::answers(const FolderQuestion& question, int yearNow) const {
    return relativeFolder == question.relativeFolder && rules == question.rules &&
           secretFloppyMode == question.secretFloppyMode && parseMonthWords == question.parseMonthWords &&
           currentYear == yearNow;
}

const FolderEvidence& FolderEvidenceCache::evidenceFor(const FolderQuestion& question) {
    const int currentYear = localCivilTime(question.now).year;
    if (!last_ || !last_->answers(question, currentYear))
        last_ = Remembered{std::string(question.relativeFolder),
                           question.rules,
                           question.secretFloppyMode,
                           question.parseMonthWords,
                           currentYear,
                           evidenceOf(question)};
    return last_->evidence;
}

}  // namespace vellomar
