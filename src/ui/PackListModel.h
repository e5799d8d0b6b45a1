#pragma once

#include "services/UniversalPack.h"
#include "shell/OrvexState.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace orvex {

/// The content packs as the Update Center lists them: those of the catalog in its order, then what
/// is installed and no longer listed there. Rows are kept as far as they can be when the catalog
/// changes, so that a view stays where it is.
class PackListModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orvex::OrvexState* state READ state WRITE setState NOTIFY stateChanged FINAL)
  /// How many packs the catalog has.
  Q_PROPERTY(int catalogCount READ catalogCount NOTIFY catalogCountChanged FINAL)

 public:
  enum Role {
    Pack = Qt::UserRole,
    Name,
    Version,
    /// In the catalog.
    Listed,
    FileCount,
    /// Of all files together.
    TotalBytes,
    Installed,
    /// Empty when not installed.
    InstalledVersion,
    NeedsUpdate,
    Busy,
    Installing,
    Cancelling,
    ProgressDone,
    ProgressTotal,
  };

  [[nodiscard]] OrvexState* state() const noexcept { return state_; }
  void setState(OrvexState* state);
  [[nodiscard]] int catalogCount() const noexcept { return catalogCount_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void stateChanged();
  void catalogCountChanged();

 private:
  struct Row {
    UniversalPack pack;
    bool listed = true;
    qint64 fileCount = 0;
    qint64 totalBytes = 0;
  };

  void reload();
  void replaceRows(QList<Row> rows);
  /// Tells views that these roles of `packID` are new.
  void touch(const QString& packID, const QList<int>& roles);

  QPointer<OrvexState> state_;
  QList<Row> rows_;
  int catalogCount_ = 0;
};

}  // namespace orvex
