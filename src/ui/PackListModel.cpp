#include "ui/PackListModel.h"

#include "services/UniversalPackCatalog.h"

#include <QSet>

namespace orvex {

void PackListModel::setState(OrvexState* state) {
  if (state_ == state) return;
  if (state_) state_->disconnect(this);
  state_ = state;
  if (state != nullptr) {
    connect(state, &OrvexState::packsChanged, this, &PackListModel::reload);
    connect(state, &OrvexState::installedPacksChanged, this, &PackListModel::reload);
    connect(state, &OrvexState::packBusyIDsChanged, this, [this](const QString& packID) {
      touch(packID, {Busy, Installing, Cancelling, ProgressDone, ProgressTotal});
    });
    connect(state, &OrvexState::packProgressChanged, this, [this](const QString& packID) {
      touch(packID, {Cancelling, ProgressDone, ProgressTotal});
    });
  }
  reload();
  Q_EMIT stateChanged();
}

void PackListModel::reload() {
  QList<Row> rows;
  const int before = catalogCount_;
  catalogCount_ = 0;
  if (state_) {
    QSet<QString> listed;
    catalogCount_ = static_cast<int>(state_->packs().size());
    rows.reserve(catalogCount_);
    for (const UniversalPack& pack : state_->packs()) {
      const QList<UniversalPackAsset> assets = finalCutAssets(pack);
      rows.append({pack, true, assets.size(), totalBytes(assets)});
      listed.insert(pack.id);
    }
    for (const UniversalInstalledPack& installed : state_->installedPacks()) {
      if (listed.contains(installed.id)) continue;
      listed.insert(installed.id);
      UniversalPack pack;
      pack.id = installed.id;
      pack.name = installed.name;
      pack.version = installed.version;
      rows.append({pack, false, installed.files.size(), 0});
    }
  }
  replaceRows(std::move(rows));
  if (catalogCount_ != before) Q_EMIT catalogCountChanged();
}

void PackListModel::replaceRows(QList<Row> rows) {
  const auto before = static_cast<int>(rows_.size());
  const auto after = static_cast<int>(rows.size());
  if (after < before) {
    beginRemoveRows({}, after, before - 1);
    rows_ = std::move(rows);
    endRemoveRows();
  } else if (after > before) {
    beginInsertRows({}, before, after - 1);
    rows_ = std::move(rows);
    endInsertRows();
  } else {
    rows_ = std::move(rows);
  }
  if (const int kept = std::min(before, after); kept > 0)
    Q_EMIT dataChanged(index(0), index(kept - 1));
}

void PackListModel::touch(const QString& packID, const QList<int>& roles) {
  for (int row = 0; row < rows_.size(); ++row)
    if (rows_.at(row).pack.id == packID) Q_EMIT dataChanged(index(row), index(row), roles);
}

int PackListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant PackListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid) || !state_) return {};
  const Row& row = rows_.at(index.row());
  const UniversalPack& pack = row.pack;
  const auto activity = state_->packActivity(pack.id);
  switch (role) {
    case Pack:
      return QVariant::fromValue(pack);
    case Qt::DisplayRole:
    case Name:
      return pack.name;
    case Version:
      return pack.version;
    case Listed:
      return row.listed;
    case FileCount:
      return row.fileCount;
    case TotalBytes:
      return row.totalBytes;
    case Installed:
      return state_->installedVersion(pack).has_value();
    case InstalledVersion:
      return state_->installedVersion(pack).value_or(QString());
    case NeedsUpdate:
      return state_->installedVersion(pack).value_or(pack.version) != pack.version;
    case Busy:
      return activity.has_value();
    case Installing:
      return activity && activity->installing;
    case Cancelling:
      return activity && activity->cancelling;
    case ProgressDone:
      return activity ? activity->progress.done : 0;
    case ProgressTotal:
      return activity ? activity->progress.total : 0;
    default:
      return {};
  }
}

QHash<int, QByteArray> PackListModel::roleNames() const {
  return {{Pack, "pack"},
          {Name, "name"},
          {Version, "version"},
          {Listed, "listed"},
          {FileCount, "fileCount"},
          {TotalBytes, "totalBytes"},
          {Installed, "installed"},
          {InstalledVersion, "installedVersion"},
          {NeedsUpdate, "needsUpdate"},
          {Busy, "busy"},
          {Installing, "installing"},
          {Cancelling, "cancelling"},
          {ProgressDone, "progressDone"},
          {ProgressTotal, "progressTotal"}};
}

}  // namespace orvex
