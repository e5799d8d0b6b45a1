#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace orvex {

/// The LUTs of one origin that the search finds, for a list of cards. Rows are places: when the
/// search changes, what stands in them changes and only the number of rows is made longer or
/// shorter at the end, so that a view keeps its delegates.
class LUTCatalog : public QAbstractListModel {
  Q_OBJECT
  QML_ANONYMOUS
  Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged FINAL)
  /// Of the rows.
  Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)
  /// Of all LUTs, whatever is searched.
  Q_PROPERTY(int total READ total NOTIFY totalChanged FINAL)

 public:
  enum Role {
    NameRole = Qt::UserRole,
    CaptionRole,
    FileRole,
    RootRole,
    PathRole,
  };

  struct Entry {
    QString name{};
    /// What is said below the name.
    QString caption{};
    QUrl file{};
    /// The folder in which the file has to lie to be applied.
    QUrl root{};
  };

  using QAbstractListModel::QAbstractListModel;

  [[nodiscard]] const QString& search() const noexcept { return search_; }
  void setSearch(const QString& search);
  [[nodiscard]] int count() const noexcept { return static_cast<int>(positions_.size()); }
  [[nodiscard]] virtual int total() const = 0;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void searchChanged();
  void countChanged();
  void totalChanged();

 protected:
  /// The LUTs have changed.
  void refresh();
  /// The positions, ascending, of what `query` finds; all when it is blank.
  [[nodiscard]] virtual QList<qsizetype> find(QStringView query) const = 0;
  /// Nothing when the LUTs have changed and `refresh` is still to come.
  [[nodiscard]] virtual Entry entry(qsizetype position) const = 0;

 private:
  void show(const QList<qsizetype>& positions);

  QString search_;
  QList<qsizetype> positions_;
};

}  // namespace orvex
