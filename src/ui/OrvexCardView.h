#pragma once

#include "ui/OrvexColumns.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QPointer>
#include <QQmlComponent>
#include <QQuickItem>

namespace orvex {

/// Cards for a model's rows, side by side in columns and row by row. Only those near the part that
/// is shown are made, and a card that is left behind stands for another row: the toolkit's own grid
/// (6.4) frees it and makes a new one, whatever it is told. The current card is there wherever it
/// is.
///
/// A card is given its `index`, its place and size, and the model's roles where it has properties
/// of their names. What it holds besides must not outlive a change of them. Lengths are in points.
class OrvexCardView : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT

  /// Its rows do not change places.
  Q_PROPERTY(QAbstractItemModel* model READ model WRITE setModel NOTIFY modelChanged FINAL)
  Q_PROPERTY(QQmlComponent* delegate MEMBER delegate_ NOTIFY delegateChanged FINAL)
  /// The model's rows.
  Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)
  /// The row whose card takes the keyboard's focus; -1 for none.
  Q_PROPERTY(int currentIndex MEMBER currentIndex_ NOTIFY currentIndexChanged FINAL)
  /// Of a card.
  Q_PROPERTY(double minimumWidth MEMBER minimumWidth_ NOTIFY minimumWidthChanged FINAL)
  /// Between cards, side by side and one below the other.
  Q_PROPERTY(double spacing MEMBER spacing_ NOTIFY spacingChanged FINAL)
  Q_PROPERTY(int columns READ columns NOTIFY columnsChanged FINAL)
  /// What the cards are wide, to a point.
  Q_PROPERTY(double cardWidth READ cardWidth NOTIFY columnsChanged FINAL)
  /// Above 0 together with the spacing.
  Q_PROPERTY(double cardHeight MEMBER cardHeight_ NOTIFY cardHeightChanged FINAL)
  /// The part that is shown, in the view's own coordinates.
  Q_PROPERTY(double shownTop MEMBER shownTop_ NOTIFY shownChanged FINAL)
  Q_PROPERTY(double shownHeight MEMBER shownHeight_ NOTIFY shownChanged FINAL)

 public:
  explicit OrvexCardView(QQuickItem* parent = nullptr);

  [[nodiscard]] QAbstractItemModel* model() const noexcept { return model_; }
  void setModel(QAbstractItemModel* model);
  [[nodiscard]] int count() const { return model_ ? model_->rowCount() : 0; }
  [[nodiscard]] int columns() const { return layout().count(); }
  [[nodiscard]] double cardWidth() const { return layout().meanWidth(); }

  /// The card that stands for `row`; null where there is none now.
  Q_INVOKABLE QQuickItem* cardAt(int row);

 Q_SIGNALS:
  void modelChanged();
  void delegateChanged();
  void countChanged();
  void currentIndexChanged();
  void minimumWidthChanged();
  void spacingChanged();
  void columnsChanged();
  void cardHeightChanged();
  void shownChanged();

 protected:
  void componentComplete() override;
  void geometryChange(const QRectF& now, const QRectF& before) override;
  void updatePolish() override;

 private:
  [[nodiscard]] OrvexColumns layout() const { return {width(), minimumWidth_, spacing_}; }
  void reset();
  // Of all roles where none is named.
  void refresh(int first, int last, const QList<int>& changed);
  // False where the card cannot be made.
  bool show(int row);
  [[nodiscard]] QQuickItem* make(int row);
  void give(QQuickItem& card, int row, const QList<int>& changed) const;
  [[nodiscard]] QVariantMap values(const QQuickItem& card, int row,
                                   const QList<int>& changed) const;

  QPointer<QAbstractItemModel> model_;
  QQmlComponent* delegate_ = nullptr;
  int currentIndex_ = -1;
  double minimumWidth_ = 0;
  double spacing_ = 0;
  double cardHeight_ = 1;
  double shownTop_ = 0;
  double shownHeight_ = 0;
  QHash<int, QQuickItem*> cards_;
  QList<QQuickItem*> spare_;
};

}  // namespace orvex
