#pragma once

#include "base/Discard.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace orvex {

/// Those items of an inventory that a search finds, in the inventory's order. A change of the
/// search keeps rows and gives them other items, so that a view keeps the delegates that show them;
/// rows come and go at the end only.
class LibraryModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Models of one inventory are made.")
  Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged FINAL)
  Q_PROPERTY(int count READ count NOTIFY listChanged FINAL)
  /// Changes when the inventory does, but not with the search.
  Q_PROPERTY(int generation READ generation NOTIFY listChanged FINAL)

 public:
  [[nodiscard]] const QString& search() const noexcept { return search_; }
  /// White space around it counts for nothing; blank finds every item.
  void setSearch(const QString& search);
  [[nodiscard]] int count() const noexcept { return static_cast<int>(rows_.size()); }
  [[nodiscard]] int generation() const noexcept { return generation_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const final;

 Q_SIGNALS:
  void searchChanged();
  void registryChanged();
  /// Other items, or as many as before, stand in the rows.
  void listChanged();

 protected:
  /// The positions in the inventory of the items that `search` finds, ascending.
  [[nodiscard]] virtual QList<qsizetype> matching(QStringView search) const = 0;
  /// Of the item in a row of this model.
  [[nodiscard]] qsizetype position(const QModelIndex& index) const { return rows_[index.row()]; }

  /// Where the items come from. They are the model's own, so that they are good until the rows show
  /// others.
  template <typename Registry, typename Item>
  struct Source {
    QPointer<Registry> registry;
    QList<Item> items;

    [[nodiscard]] QList<qsizetype> matching(QStringView search) const {
      return registry ? registry->matching(search) : QList<qsizetype>();
    }
    /// What the rows are about to show.
    [[nodiscard]] QList<Item> latest() const {
      return registry ? registry->items() : QList<Item>();
    }
  };
  template <typename Registry, typename Item>
  void observe(Source<Registry, Item>& source, Registry* registry) {
    if (source.registry == registry) return;
    if (source.registry) source.registry->disconnect(this);
    source.registry = registry;
    const auto reload = [this, &source] {
      const QList<Item> latest = source.latest();
      if (latest.isSharedWith(source.items) || (latest.isEmpty() && source.items.isEmpty())) return;
      replace([&] { discard(std::exchange(source.items, latest)); });
    };
    if (registry != nullptr) connect(registry, &Registry::changed, this, reload);
    reload();
    Q_EMIT registryChanged();
  }

  /// Lists what matches now.
  void filter() { show(matching(search_)); }
  /// The same over another inventory, which `take` puts in place of the last one.
  void replace(const std::function<void()>& take);

 private:
  void show(QList<qsizetype> rows, const std::function<void()>& take = nullptr);

  QString search_;
  QList<qsizetype> rows_;
  int generation_ = 0;
};

}  // namespace orvex
