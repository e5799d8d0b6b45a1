#include "ui/OrvexCardView.h"

#include <QQmlContext>
#include <QQmlInfo>

#include <algorithm>
#include <cmath>

namespace orvex {
OrvexCardView::OrvexCardView(QQuickItem* parent) : QQuickItem(parent) {
  for (const auto changed : {&OrvexCardView::minimumWidthChanged, &OrvexCardView::spacingChanged})
    connect(this, changed, this, &OrvexCardView::columnsChanged);
  for (const auto changed : {&OrvexCardView::columnsChanged, &OrvexCardView::cardHeightChanged,
                             &OrvexCardView::shownChanged, &OrvexCardView::currentIndexChanged})
    connect(this, changed, this, &QQuickItem::polish);
  connect(this, &OrvexCardView::delegateChanged, this, &OrvexCardView::reset);
}

void OrvexCardView::setModel(QAbstractItemModel* model) {
  if (model_ == model) return;
  if (model_) model_->disconnect(this);
  model_ = model;
  if (model != nullptr) {
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last, const QList<int>& changed) {
              refresh(first.row(), last.row(), changed);
            });
    const auto recount = [this](const QModelIndex&, int first) {
      refresh(first, count() - 1, {});
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

void OrvexCardView::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  if (now.width() != before.width()) Q_EMIT columnsChanged();
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

void OrvexCardView::refresh(int first, int last, const QList<int>& changed) {
  for (auto card = cards_.cbegin(); card != cards_.cend(); ++card)
    if (card.key() >= first && card.key() <= last) give(*card.value(), card.key(), changed);
}

// One row of cards above and below is made before it is needed.
void OrvexCardView::updatePolish() {
  const double rowPitch = cardHeight_ + spacing_;
  if (!isComponentComplete() || delegate_ == nullptr || rowPitch <= 0) return;
  const auto line = [&](double y) { return static_cast<int>(std::floor(y / rowPitch)); };
  const OrvexColumns columns = layout();
  const int rows = count();
  const int first = std::clamp((line(shownTop_) - 1) * columns.count(), 0, rows);
  const int end = std::clamp((line(shownTop_ + shownHeight_) + 2) * columns.count(), first, rows);

  for (const int row : cards_.keys()) {
    QQuickItem* const card = cards_.value(row);
    if (row >= rows) {
      // Not kept for later: it may have the focus, or be about to take it.
      card->setParentItem(nullptr);
      card->deleteLater();
    } else if ((row >= first && row < end) || row == currentIndex_) {
      continue;
    } else {
      card->setVisible(false);
      spare_.append(card);
    }
    cards_.remove(row);
  }
  for (int row = first; row < end; ++row)
    if (!show(row)) return;
  if (currentIndex_ >= 0 && currentIndex_ < rows && !show(currentIndex_)) return;
  for (auto card = cards_.cbegin(); card != cards_.cend(); ++card) {
    const int column = card.key() % columns.count();
    card.value()->setPosition({columns.left(column), card.key() / columns.count() * rowPitch});
    card.value()->setSize({columns.width(column), cardHeight_});
  }
}

bool OrvexCardView::show(int row) {
  if (cards_.contains(row)) return true;
  QQuickItem* card = nullptr;
  if (spare_.isEmpty()) {
    card = make(row);
    if (card == nullptr) return false;
  } else {
    card = spare_.takeLast();
    give(*card, row, {});
    card->setVisible(true);
  }
  cards_.insert(row, card);
  return true;
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
  delegate_->setInitialProperties(card, values(*card, row, {}));
  delegate_->completeCreate();
  return card;
}

void OrvexCardView::give(QQuickItem& card, int row, const QList<int>& changed) const {
  const QVariantMap given = values(card, row, changed);
  for (auto value = given.cbegin(); value != given.cend(); ++value)
    card.setProperty(value.key().toUtf8().constData(), value.value());
}

QVariantMap OrvexCardView::values(const QQuickItem& card, int row,
                                  const QList<int>& changed) const {
  QVariantMap values{{QStringLiteral("index"), row}};
  const QHash<int, QByteArray> roles = model_->roleNames();
  for (auto role = roles.cbegin(); role != roles.cend(); ++role)
    if ((changed.isEmpty() || changed.contains(role.key())) &&
        card.metaObject()->indexOfProperty(role.value().constData()) >= 0)
      values.insert(QString::fromUtf8(role.value()),
                    model_->data(model_->index(row, 0), role.key()));
  return values;
}

}  // namespace orvex
