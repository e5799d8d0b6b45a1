#include "shell/PackOperations.h"

namespace orvex {
namespace {

constexpr double kBrief = 3.2;
constexpr double kFailure = 5.0;
// What was waited for a while and then failed is read a little longer.
constexpr double kFailedInstall = 6.0;

bool wasStopped(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const Stopped&) {
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace

PackOperations::PackOperations(UniversalPackClient client) : client_(std::move(client)) {}

PackOperations::~PackOperations() {
  // All at once, so that waiting for the first lets the others end as well.
  for (auto& [id, operation] : operations_) operation.stop.request_stop();
}

PackOperations::Listing PackOperations::list(const UniversalPackClient& client,
                                             const ListingCounter& counter) {
  const quint64 number = ++*counter;
  return {number, client.installedPacks()};
}

void PackOperations::publish(const Listing& listing) {
  if (listing.number <= published_) return;
  published_ = listing.number;
  if (installed_ == listing.packs) return;
  installed_ = listing.packs;
  Q_EMIT installedChanged();
}

void PackOperations::setLastError(const std::optional<QString>& description) {
  if (lastError_ == description) return;
  lastError_ = description;
  Q_EMIT lastErrorChanged();
}

QSet<QString> PackOperations::busyIDs() const {
  QSet<QString> ids;
  for (const auto& [id, operation] : operations_) ids.insert(id);
  return ids;
}

std::optional<PackActivity> PackOperations::activity(const QString& packID) const {
  const auto found = operations_.find(packID);
  if (found == operations_.end()) return std::nullopt;
  return found->second.activity;
}

void PackOperations::refresh(bool silent) {
  struct Found {
    QList<UniversalPack> packs;
    Listing installed;
  };
  if (!silent) toastOwed_ = true;
  refresh_.run(
      [client = client_, counter = listings_](const WorkControl& control) {
        QList<UniversalPack> packs = client.finalCutPacks(control.stop);
        return Found{std::move(packs), list(client, counter)};
      },
      [this](const std::expected<Found, std::exception_ptr>& found) {
        const bool tell = std::exchange(toastOwed_, false);
        Q_EMIT refreshingChanged();
        if (!found) {
          const QString description = descriptionOf(found.error());
          setLastError(description);
          if (tell)
            Q_EMIT toast(QStringLiteral("Cloud Packs • ") + description, OrvexToast::Kind::error,
                         kFailure);
          return;
        }
        if (packs_ != found->packs) {
          packs_ = found->packs;
          Q_EMIT packsChanged();
        }
        publish(found->installed);
        setLastError(std::nullopt);
        if (tell)
          Q_EMIT toast(QStringLiteral("%1 Universal Pack bulundu.").arg(found->packs.size()),
                       OrvexToast::Kind::success, kBrief);
      });
  Q_EMIT refreshingChanged();
}

void PackOperations::refreshInstalled() {
  listing_.run(
      [client = client_, counter = listings_](const WorkControl&) { return list(client, counter); },
      [this](const std::expected<Listing, std::exception_ptr>& listing) {
        if (listing)
          publish(*listing);
        else
          setLastError(descriptionOf(listing.error()));
      });
}

PackOperations::Operation* PackOperations::begin(const QString& packID, bool installing) {
  const auto [entry, added] = operations_.try_emplace(packID);
  if (!added) return nullptr;
  entry->second.activity.installing = installing;
  return &entry->second;
}

void PackOperations::end(const QString& packID) {
  operations_.erase(packID);
  Q_EMIT busyChanged(packID);
}

void PackOperations::install(const UniversalPack& pack) {
  Operation* operation = begin(pack.id, true);
  if (operation == nullptr) return;
  operation->background.run(
      [client = client_, counter = listings_, pack,
       cancelled = operation->stop](const WorkControl& control) mutable {
        // Either ends it: the panel that goes away, or the user.
        const std::stop_callback follow(control.stop, [&] { cancelled.request_stop(); });
        client.install(pack, {cancelled.get_token(), control.report});
        return list(client, counter);
      },
      [this, id = pack.id,
       name = pack.name](const std::expected<Listing, std::exception_ptr>& listing) {
        end(id);
        if (listing) {
          publish(*listing);
          setLastError(std::nullopt);
          Q_EMIT toast(name + QStringLiteral(" yüklendi."), OrvexToast::Kind::success, kBrief);
        } else if (wasStopped(listing.error())) {
          Q_EMIT toast(name + QStringLiteral(" kurulumu iptal edildi."), OrvexToast::Kind::info,
                       kBrief);
        } else {
          const QString description = descriptionOf(listing.error());
          setLastError(description);
          Q_EMIT toast(QStringLiteral("Pack kurulamadı • ") + description, OrvexToast::Kind::error,
                       kFailedInstall);
        }
      },
      [this, id = pack.id](Progress progress) {
        const auto found = operations_.find(id);
        if (found == operations_.end()) return;
        found->second.activity.progress = progress;
        Q_EMIT progressChanged(id);
      });
  Q_EMIT busyChanged(pack.id);
}

void PackOperations::uninstall(const UniversalPack& pack) {
  Operation* operation = begin(pack.id, false);
  if (operation == nullptr) return;
  operation->background.run(
      [client = client_, counter = listings_, id = pack.id](const WorkControl& control) {
        client.uninstall(id, control.stop);
        return list(client, counter);
      },
      [this, id = pack.id,
       name = pack.name](const std::expected<Listing, std::exception_ptr>& listing) {
        end(id);
        if (!listing) {
          Q_EMIT toast(QStringLiteral("Pack kaldırılamadı • ") + descriptionOf(listing.error()),
                       OrvexToast::Kind::error, kFailure);
          return;
        }
        publish(*listing);
        Q_EMIT toast(name + QStringLiteral(" kaldırıldı."), OrvexToast::Kind::success, kBrief);
      });
  Q_EMIT busyChanged(pack.id);
}

void PackOperations::cancelInstall(const QString& packID) {
  const auto found = operations_.find(packID);
  if (found == operations_.end() || !found->second.activity.installing ||
      found->second.activity.cancelling)
    return;
  found->second.activity.cancelling = true;
  found->second.stop.request_stop();
  Q_EMIT progressChanged(packID);
}

}  // namespace orvex
