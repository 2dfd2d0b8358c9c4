#include "ui/desktop/PortalFileChooser.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QGuiApplication>
#include <QList>
#include <QPointer>
#include <QVariant>
#include <utility>

#include "ui/desktop/FileUri.h"

namespace vellomar {

// A filter as the portal takes it: a(sa(us)).
struct PortalPattern {
    uint kind = 0;  // 0 is a pattern of names, 1 a media type
    QString text;
};

struct PortalFilter {
    QString name;
    QList<PortalPattern> patterns;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalPattern& pattern) {
    argument.beginStructure();
    argument << pattern.kind << pattern.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalPattern& pattern) {
    argument.beginStructure();
    argument >> pattern.kind >> pattern.text;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter& filter) {
    argument.beginStructure();
    argument << filter.name << filter.patterns;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter& filter) {
    argument.beginStructure();
    argument >> filter.name >> filter.patterns;
    argument.endStructure();
    return argument;
}

}  // namespace vellomar

Q_DECLARE_METATYPE(vellomar::PortalPattern)
Q_DECLARE_METATYPE(vellomar::PortalFilter)

namespace vellomar {
namespace {

constexpr QLatin1StringView kChooserInterface("org.freedesktop.portal.FileChooser");

void registerFilterTypes() {
    qDBusRegisterMetaType<PortalPattern>();
    qDBusRegisterMetaType<QList<PortalPattern>>();
    qDBusRegisterMetaType<PortalFilter>();
    qDBusRegisterMetaType<QList<PortalFilter>>();
}

QVariant portalFilters(const FileFilter& filter) {
    PortalFilter converted{.name = filter.name, .patterns = {}};
    for (const QString& pattern : filter.patterns)
        converted.patterns.append({.kind = 0, .text = pattern});
    return QVariant::fromValue(QList<PortalFilter>{converted});
}

QString nameOf(const QWindow* window) {
    return window == nullptr ? QString() : portalWindowName(QGuiApplication::platformName(), window->winId());
}

QVariantMap optionsFor(const FileQuestion& question, const QString& token) {
    using Kind = FileQuestion::Kind;
    QVariantMap options{{QStringLiteral("handle_token"), token},
                        {QStringLiteral("accept_label"), question.prompt},
                        {QStringLiteral("modal"), true}};
    const bool isFolder = question.kind == Kind::folder || question.kind == Kind::folders;
    if (question.kind == Kind::saveFile) {
        options.insert(QStringLiteral("current_name"), question.suggestedName);
    } else {
        options.insert(QStringLiteral("multiple"), question.kind != Kind::folder);
        options.insert(QStringLiteral("directory"), isFolder);
    }
    if (!isFolder && !question.filter.patterns.isEmpty())
        options.insert(QStringLiteral("filters"), portalFilters(question.filter));
    return options;
}

QDBusMessage callFor(const FileQuestion& question, const QString& token) {
    const bool saves = question.kind == FileQuestion::Kind::saveFile;
    auto call = QDBusMessage::createMethodCall(kPortalService, kPortalPath, kChooserInterface,
                                               saves ? QStringLiteral("SaveFile") : QStringLiteral("OpenFile"));
    call << nameOf(question.owner) << question.prompt << optionsFor(question, token);
    return call;
}

std::vector<std::string> pathsIn(const QVariantMap& results) {
    std::vector<std::string> paths;
    for (const QString& uri : results.value(QStringLiteral("uris")).toStringList())
        if (auto path = pathOfFileUri(uri.toStdString())) paths.push_back(*std::move(path));
    return paths;
}

}  // namespace

QString portalWindowName(const QString& platform, WId window) {
    // Wayland has its own way, which Qt keeps to itself.
    if (platform != QStringLiteral("xcb")) return {};
    return QStringLiteral("x11:") + QString::number(window, 16);
}

PortalFileChooser::PortalFileChooser(QDBusConnection sessionBus, FileChooser& fallback)
    : bus_(std::move(sessionBus)), fallback_(fallback) {
    registerFilterTypes();
}

void PortalFileChooser::choose(const FileQuestion& question, Done done) {
    if (done_) {
        done({});
        return;
    }
    done_ = std::move(done);
    request_ = std::make_unique<PortalRequest>(bus_);
    connect(request_.get(), &PortalRequest::answered, this, &PortalFileChooser::takeAnswer);
    connect(request_.get(), &PortalRequest::failed, this, [this, question] { askFallback(question); });
    request_->send(callFor(question, request_->token()));
}

void PortalFileChooser::takeAnswer(uint response, const QVariantMap& results) {
    finish(response == 0 ? pathsIn(results) : std::vector<std::string>());
}

void PortalFileChooser::askFallback(const FileQuestion& question) {
    fallback_.choose(question, [self = QPointer(this)](const std::vector<std::string>& paths) {
        if (self) self->finish(paths);
    });
}

void PortalFileChooser::finish(const std::vector<std::string>& paths) {
    if (request_) request_.release()->deleteLater();  // it is what calls us
    const auto done = std::exchange(done_, {});
    done(paths);
}

}  // namespace vellomar
