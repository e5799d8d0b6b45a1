#pragma once

#include "engines/LUTRegistry.h"
#include "ui/color/LUTCatalog.h"

#include <QPointer>

namespace orvex {

/// The LUTs of the user's own library, in its order and with its search.
class LocalLUTs : public orvex::LUTCatalog {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orvex::LUTRegistry* registry READ registry WRITE setRegistry NOTIFY registryChanged
                 REQUIRED FINAL)

 public:
  using LUTCatalog::LUTCatalog;

  [[nodiscard]] LUTRegistry* registry() const noexcept { return registry_; }
  void setRegistry(LUTRegistry* registry);
  [[nodiscard]] int total() const override;

 Q_SIGNALS:
  void registryChanged();

 private:
  [[nodiscard]] QList<qsizetype> find(QStringView query) const override;
  [[nodiscard]] Entry entry(qsizetype position) const override;

  QPointer<LUTRegistry> registry_;
};

}  // namespace orvex
