#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace orvex {

/// A disc in the middle of the item, cut off where the editor's rounded shape ends. An item can
/// clip what is in it to a rectangle only. Lengths are in points.
class SpeedCurveDisc : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(double radius MEMBER radius_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY styleChanged FINAL)
  /// Half inside, half outside the disc's edge.
  Q_PROPERTY(double outlineWidth MEMBER outlineWidth_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor outlineColor MEMBER outlineColor_ NOTIFY styleChanged FINAL)
  /// How far the disc glows beyond its edge: two standard deviations.
  Q_PROPERTY(double glowRadius MEMBER glowRadius_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor glowColor MEMBER glowColor_ NOTIFY styleChanged FINAL)
  /// What the editor fills, in the item's coordinates.
  Q_PROPERTY(QRectF shape MEMBER shape_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(double cornerRadius MEMBER cornerRadius_ NOTIFY styleChanged FINAL)

 public:
  explicit SpeedCurveDisc(QQuickItem* parent = nullptr);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void styleChanged();

 private:
  double radius_ = 0;
  QColor color_;
  double outlineWidth_ = 0;
  QColor outlineColor_;
  double glowRadius_ = 0;
  QColor glowColor_;
  QRectF shape_;
  double cornerRadius_ = 0;
};

}  // namespace orvex
