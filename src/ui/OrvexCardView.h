#pragma once

#include <QAbstractItemModel>
#include <QHash>
#include <QPointer>
#include <QQmlComponent>
#include <QQuickItem>

namespace orvex {

/// Cards for a model's rows, side by side in columns and row by row. Only those near the part that
/// is shown are made, and a card that is left behind stands for another row: the toolkit's own grid
/// (6.4) frees it and makes a new one, whatever it is told. What has the focus is kept where it is.
///
/// A card is given its `index`, and the model's roles where it has properties of their names. What
/// it holds besides must not outlive a change of them. Lengths are in points.
class OrvexCardView : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT

  /// Its rows do not change places.
  Q_PROPERTY(QAbstractItemModel* model READ model WRITE setModel NOTIFY modelChanged FINAL)
  Q_PROPERTY(QQmlComponent* delegate MEMBER delegate_ NOTIFY delegateChanged FINAL)
  /// The model's rows.
  Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)
  /// At least 1.
  Q_PROPERTY(int columns MEMBER columns_ NOTIFY shapeChanged FINAL)
  /// From the left of one card to the left of the next.
  Q_PROPERTY(double columnPitch MEMBER columnPitch_ NOTIFY shapeChanged FINAL)
  /// From the top of one card to the top of the one below; above 0.
  Q_PROPERTY(double rowPitch MEMBER rowPitch_ NOTIFY shapeChanged FINAL)
  /// The part that is shown, in the view's own coordinates.
  Q_PROPERTY(double shownTop MEMBER shownTop_ NOTIFY shapeChanged FINAL)
  Q_PROPERTY(double shownHeight MEMBER shownHeight_ NOTIFY shapeChanged FINAL)

 public:
  explicit OrvexCardView(QQuickItem* parent = nullptr);

  [[nodiscard]] QAbstractItemModel* model() const noexcept { return model_; }
  void setModel(QAbstractItemModel* model);
  [[nodiscard]] int count() const { return model_ ? model_->rowCount() : 0; }

  /// The card that stands for `row`; null where there is none now.
  Q_INVOKABLE QQuickItem* cardAt(int row);

 Q_SIGNALS:
  void modelChanged();
  void delegateChanged();
  void countChanged();
  void shapeChanged();

 protected:
  void componentComplete() override;
  void updatePolish() override;

 private:
  void reset();
  // Of all roles where none is named.
  void refresh(int first, int last, const QList<int>& changed);
  [[nodiscard]] QQuickItem* make(int row);
  void give(QQuickItem& card, int row, const QList<int>& changed) const;
  [[nodiscard]] QVariantMap values(const QQuickItem& card, int row,
                                   const QList<int>& changed) const;

  QPointer<QAbstractItemModel> model_;
  QQmlComponent* delegate_ = nullptr;
  int columns_ = 1;
  double columnPitch_ = 0;
  double rowPitch_ = 1;
  double shownTop_ = 0;
  double shownHeight_ = 0;
  QHash<int, QQuickItem*> cards_;
  QList<QQuickItem*> spare_;
};

}  // namespace orvex
