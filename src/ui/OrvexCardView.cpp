#include "ui/OrvexCardView.h"

#include <QQmlContext>
#include <QQmlInfo>

#include <algorithm>
#include <cmath>

namespace orvex {
namespace {

constexpr const char* kIndex = "index";

}  // namespace

OrvexCardView::OrvexCardView(QQuickItem* parent) : QQuickItem(parent) {
  connect(this, &OrvexCardView::shapeChanged, this, &QQuickItem::polish);
  connect(this, &OrvexCardView::delegateChanged, this, &OrvexCardView::reset);
}

void OrvexCardView::setModel(QAbstractItemModel* model) {
  if (model_ == model) return;
  if (model_) model_->disconnect(this);
  model_ = model;
  if (model != nullptr) {
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last) {
              refresh(first.row(), last.row());
            });
    const auto recount = [this](const QModelIndex&, int first) {
      refresh(first, count() - 1);
      polish();
      Q_EMIT countChanged();
    };
    connect(model, &QAbstractItemModel::rowsInserted, this, recount);
    connect(model, &QAbstractItemModel::rowsRemoved, this, recount);
    connect(model, &QAbstractItemModel::modelReset, this, &OrvexCardView::reset);
  }
  reset();
  Q_EMIT modelChanged();
}

QQuickItem* OrvexCardView::cardAt(int row) {
  updatePolish();
  return cards_.value(row);
}

void OrvexCardView::componentComplete() {
  QQuickItem::componentComplete();
  polish();
}

void OrvexCardView::reset() {
  for (QQuickItem* card : std::as_const(cards_)) card->deleteLater();
  for (QQuickItem* card : std::as_const(spare_)) card->deleteLater();
  for (QQuickItem* card : childItems()) card->setParentItem(nullptr);
  cards_.clear();
  spare_.clear();
  polish();
  Q_EMIT countChanged();
}

void OrvexCardView::refresh(int first, int last) {
  for (auto card = cards_.cbegin(); card != cards_.cend(); ++card)
    if (card.key() >= first && card.key() <= last) give(*card.value(), card.key());
}

// One row of cards above and below is made before it is needed.
void OrvexCardView::updatePolish() {
  if (!isComponentComplete() || delegate_ == nullptr || rowPitch_ <= 0) return;
  const auto line = [this](double y) { return static_cast<int>(std::floor(y / rowPitch_)); };
  const int columns = std::max(columns_, 1);
  const int rows = count();
  const int first = std::clamp((line(shownTop_) - 1) * columns, 0, rows);
  const int end = std::clamp((line(shownTop_ + shownHeight_) + 2) * columns, first, rows);

  for (auto card = cards_.begin(); card != cards_.end();) {
    const bool kept = card.key() < rows &&
                      (card.value()->hasActiveFocus() || (card.key() >= first && card.key() < end));
    if (!kept) putAway(*card.value());
    card = kept ? std::next(card) : cards_.erase(card);
  }
  for (int row = first; row < end; ++row) {
    if (cards_.contains(row)) continue;
    QQuickItem* const card = spare_.isEmpty() ? make(row) : spare_.takeLast();
    if (card == nullptr) return;
    give(*card, row);
    card->setVisible(true);
    cards_.insert(row, card);
  }
  for (auto card = cards_.cbegin(); card != cards_.cend(); ++card)
    card.value()->setPosition(
        {card.key() % columns * columnPitch_, card.key() / columns * rowPitch_});
}

// In the context that it was written in, which alone knows what it is bound to.
QQuickItem* OrvexCardView::make(int row) {
  QQmlContext* const context = delegate_->creationContext();
  QObject* const object = delegate_->beginCreate(context != nullptr ? context : qmlContext(this));
  auto* const card = qobject_cast<QQuickItem*>(object);
  if (card == nullptr) {
    qmlWarning(this) << "no card could be made: " << delegate_->errorString();
    delete object;
    return nullptr;
  }
  card->setParent(this);
  card->setParentItem(this);
  const QHash<int, QByteArray> roles = model_->roleNames();
  QVariantMap values{{QString::fromLatin1(kIndex), row}};
  for (auto role = roles.cbegin(); role != roles.cend(); ++role)
    if (card->metaObject()->indexOfProperty(role.value().constData()) >= 0)
      values.insert(QString::fromUtf8(role.value()),
                    model_->data(model_->index(row, 0), role.key()));
  delegate_->setInitialProperties(card, values);
  delegate_->completeCreate();
  return card;
}

void OrvexCardView::give(QQuickItem& card, int row) {
  const QHash<int, QByteArray> roles = model_->roleNames();
  const QMetaObject* const type = card.metaObject();
  for (auto role = roles.cbegin(); role != roles.cend(); ++role)
    if (const int property = type->indexOfProperty(role.value().constData()); property >= 0)
      type->property(property).write(&card, model_->data(model_->index(row, 0), role.key()));
  card.setProperty(kIndex, row);
}

void OrvexCardView::putAway(QQuickItem& card) {
  card.setFocus(false);
  card.setVisible(false);
  spare_.append(&card);
}

}  // namespace orvex
