#pragma once

#include "ui/library/LibraryModel.h"

#include <QUrl>

namespace orvex {

/// The LUTs of one origin that the search finds, for a list of cards.
class LUTCatalog : public orvex::LibraryModel {
  Q_OBJECT
  QML_ANONYMOUS
  /// Of all LUTs, whatever is searched.
  Q_PROPERTY(int total READ total NOTIFY listChanged FINAL)

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

  [[nodiscard]] virtual int total() const = 0;

  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

 protected:
  /// What the rows show, not what they are about to.
  [[nodiscard]] virtual Entry entry(qsizetype position) const = 0;
};

}  // namespace orvex
