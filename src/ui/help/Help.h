#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QString>
#include <optional>

#include <QtQml/qqmlregistration.h>

#include "ui/components/WebAddresses.h"
#include "ui/desktop/LinkOpener.h"
#include "ui/help/HelpTopics.h"

namespace vellomar {

// The manual: the topics in which a text occurs, one a row, and the one that is read. A topic that was chosen is read
// until another is, whether it is found or not; until then the first that is found is. Interface thread only.
class Help final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(int count READ count NOTIFY readingChanged)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(bool hasTopic READ hasTopic NOTIFY readingChanged)
    Q_PROPERTY(int shownRow READ shownRow NOTIFY readingChanged)
    Q_PROPERTY(QString icon READ icon NOTIFY readingChanged)
    Q_PROPERTY(QString title READ title NOTIFY readingChanged)
    Q_PROPERTY(QString content READ content NOTIFY readingChanged)
    Q_PROPERTY(QString actionLabel READ actionLabel NOTIFY readingChanged)
    Q_PROPERTY(bool hasSupportPage READ hasSupportPage CONSTANT)
    Q_PROPERTY(QString makerSite READ makerSite CONSTANT)

public:
    enum Role { iconRole = Qt::UserRole + 1, titleRole, isShownRole };

    // `links` must outlive this.
    explicit Help(LinkOpener& links, WebAddresses addresses = WebAddresses::configured(), QObject* parent = nullptr);

    [[nodiscard]] bool isOpen() const { return isOpen_; }

    // Nothing is searched for, and nothing chosen.
    Q_INVOKABLE void open();
    Q_INVOKABLE void dismiss();

    [[nodiscard]] QString searchText() const { return searchText_; }
    void setSearchText(const QString& text);

    [[nodiscard]] int count() const { return rowCount(); }

    // Reads the topic in that row; a row that is none changes nothing.
    Q_INVOKABLE void select(int row);

    // To the row below the one that is read, or above it.
    Q_INVOKABLE void selectNext() { select(shownRow() + 1); }
    Q_INVOKABLE void selectPrevious() { select(shownRow() - 1); }

    // Whether there is a topic to read; without one nothing was found.
    [[nodiscard]] bool hasTopic() const { return !found_.isEmpty(); }

    // The row of the topic that is read; -1 for one that is not found.
    [[nodiscard]] int shownRow() const;
    [[nodiscard]] QString icon() const { return shown().icon; }
    [[nodiscard]] QString title() const { return shown().title; }
    [[nodiscard]] QString content() const { return shown().content; }
    [[nodiscard]] QString actionLabel() const { return shown().actionLabel; }
    Q_INVOKABLE void openAction();

    [[nodiscard]] bool hasSupportPage() const { return !siteName(addresses_.supportPage).isEmpty(); }
    [[nodiscard]] QString makerSite() const { return siteName(addresses_.makerSite); }
    Q_INVOKABLE void openSupportPage();
    Q_INVOKABLE void openMakerSite();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void openChanged();
    void searchTextChanged();
    void readingChanged();

private:
    [[nodiscard]] HelpTopic shown() const;
    [[nodiscard]] std::optional<qsizetype> shownTopic() const;
    void search();

    LinkOpener& links_;
    const WebAddresses addresses_;
    const QList<HelpTopic> topics_;
    QString searchText_;
    QList<qsizetype> found_;             // numbers of topics
    std::optional<qsizetype> selected_;  // likewise
    bool isOpen_ = false;
};

}  // namespace vellomar
