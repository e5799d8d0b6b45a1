#pragma once

#include "engines/LUTRegistry.h"
#include "ui/color/LUTCatalog.h"

namespace orvex {

/// The LUTs of the user's own library, in its order and with its search.
class LocalLUTs : public orvex::LUTCatalog {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orvex::LUTRegistry* registry READ registry WRITE setRegistry NOTIFY registryChanged
                 REQUIRED FINAL)

 public:
  [[nodiscard]] LUTRegistry* registry() const noexcept { return source_.registry; }
  void setRegistry(LUTRegistry* registry) { observe(source_, registry); }
  [[nodiscard]] int total() const override { return static_cast<int>(source_.items.size()); }

 private:
  [[nodiscard]] QList<qsizetype> matching(QStringView search) const override;
  [[nodiscard]] Entry entry(qsizetype position) const override;

  Source<LUTRegistry, LUTItem> source_;
};

}  // namespace orvex
