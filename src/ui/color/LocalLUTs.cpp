#include "ui/color/LocalLUTs.h"

namespace orvex {

void LocalLUTs::setRegistry(LUTRegistry* registry) {
  if (registry_ == registry) return;
  if (registry_) disconnect(registry_, nullptr, this, nullptr);
  registry_ = registry;
  if (registry_) connect(registry_, &LUTRegistry::changed, this, &LocalLUTs::refresh);
  Q_EMIT registryChanged();
  refresh();
}

int LocalLUTs::total() const {
  return registry_ ? static_cast<int>(registry_->items().size()) : 0;
}

QList<qsizetype> LocalLUTs::find(QStringView query) const {
  return registry_ ? registry_->matching(query) : QList<qsizetype>();
}

LUTCatalog::Entry LocalLUTs::entry(qsizetype position) const {
  if (position >= total()) return {};
  const LUTItem& item = registry_->items().at(position);
  const QString caption =
      item.title ? *item.title + QStringLiteral(" • ") + item.dimension : item.dimension;
  return {item.name(), caption, item.fileURL(), registry_->rootURL().value_or(QUrl())};
}

}  // namespace orvex
