#pragma once

#include "engines/FxPlugRegistry.h"
#include "ui/library/LibraryModel.h"

namespace orvex {

/// The FxPlug bundles, found by name and bundle identifier.
class FxPlugModel : public orvex::LibraryModel {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(
      orvex::FxPlugRegistry* registry READ registry WRITE setRegistry NOTIFY registryChanged FINAL)

 public:
  enum Role { Name = Qt::UserRole, BundleIdentifier, Version, FileURL };

  [[nodiscard]] FxPlugRegistry* registry() const noexcept { return source_.registry; }
  void setRegistry(FxPlugRegistry* registry) { observe(source_, registry); }

  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

 protected:
  [[nodiscard]] QList<qsizetype> matching(QStringView search) const override {
    return source_.matching(search);
  }

 private:
  Source<FxPlugRegistry, FxPlugItem> source_;
};

}  // namespace orvex
