#include "ui/desktop/QtFileChooser.h"

#include <QGuiApplication>
#include <QList>
#include <QQmlComponent>
#include <QUrl>
#include <QVariant>
#include <QVariantMap>
#include <utility>

#include "platform/FreeName.h"
#include "platform/Path.h"
#include "ui/desktop/FileUri.h"

namespace vellomar {
namespace {

using Kind = FileQuestion::Kind;

bool asksForFolder(Kind kind) {
    return kind != Kind::files;
}

QUrl componentFor(Kind kind) {
    return {asksForFolder(kind) ? QStringLiteral("qrc:/qml/Vellomar/FallbackFolderDialog.qml")
                                : QStringLiteral("qrc:/qml/Vellomar/FallbackFileDialog.qml")};
}

// Qt's dialog is drawn into a window, so it must have one.
QWindow* windowFor(const FileQuestion& question) {
    if (question.owner) return question.owner;
    if (auto* const focused = QGuiApplication::focusWindow()) return focused;
    return QGuiApplication::topLevelWindows().value(0);
}

QVariantMap propertiesFor(const FileQuestion& question) {
    QVariantMap properties{{QStringLiteral("title"), question.prompt},
                           {QStringLiteral("acceptLabel"), question.prompt},
                           {QStringLiteral("parentWindow"), QVariant::fromValue(windowFor(question))}};
    if (asksForFolder(question.kind)) return properties;
    if (!question.filter.patterns.isEmpty()) {
        const QString filter = question.filter.name + QStringLiteral(" (") + question.filter.patterns.join(u' ') + u')';
        properties.insert(QStringLiteral("nameFilters"), QStringList{filter});
    }
    return properties;
}

QList<QUrl> chosenIn(const QObject& dialog, Kind kind) {
    if (asksForFolder(kind)) return {dialog.property("selectedFolder").toUrl()};
    return dialog.property("selectedFiles").value<QList<QUrl>>();
}

}  // namespace

QtFileChooser::QtFileChooser(QQmlEngine& engine, FileSystem& fileSystem, QObject* parent)
    : QObject(parent), engine_(engine), fileSystem_(fileSystem) {}

void QtFileChooser::choose(const FileQuestion& question, Done done) {
    if (done_) {
        done({});
        return;
    }
    done_ = std::move(done);
    question_ = question;
    dialog_ = makeDialog(question);
    open();
}

QObject* QtFileChooser::makeDialog(const FileQuestion& question) {
    QQmlComponent component(&engine_, componentFor(question.kind));
    auto* const dialog = component.createWithInitialProperties(propertiesFor(question));
    if (dialog == nullptr) {
        qWarning("No dialog for files: %s", qUtf8Printable(component.errorString()));
        return nullptr;
    }
    dialog->setParent(this);
    connect(dialog, SIGNAL(accepted()), this, SLOT(accept()));
    connect(dialog, SIGNAL(rejected()), this, SLOT(reject()));
    return dialog;
}

void QtFileChooser::open() {
    const bool isOpen = dialog_ && QMetaObject::invokeMethod(dialog_, "open") && dialog_->property("visible").toBool();
    if (!isOpen) finish({});
}

void QtFileChooser::accept() {
    const auto paths = pathsOfFileUrls(chosenIn(*dialog_, question_.kind));
    if (question_.kind == Kind::saveFile && !paths.empty())
        finishIn(paths.front());
    else
        finish(paths);
}

void QtFileChooser::finishIn(const std::string& folder) {
    const auto path = joinPath(folder, question_.suggestedName.toStdString());
    background_.run([path, &disk = fileSystem_] { return uniqueDestination(disk, path); },
                    [this](const std::string& freePath) { finish({freePath}); });
}

void QtFileChooser::reject() {
    finish({});
}

void QtFileChooser::finish(const std::vector<std::string>& paths) {
    if (!done_) return;
    if (dialog_) dialog_->deleteLater();
    dialog_.clear();
    const auto done = std::exchange(done_, {});
    done(paths);
}

}  // namespace vellomar
