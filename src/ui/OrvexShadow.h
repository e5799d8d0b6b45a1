#pragma once

#include <QColor>
#include <QQuickItem>

namespace orvex {

/// The blurred shadow, or glow, of a rounded rectangle of the item's size. It reaches beyond the
/// item by the blur. Equal shadows of a window share one picture.
class OrvexShadow : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QColor color MEMBER color_ NOTIFY styleChanged FINAL)
  /// Where the shadow has all but faded, in points from the edge: two standard deviations.
  Q_PROPERTY(double blurRadius MEMBER blurRadius_ NOTIFY styleChanged FINAL)
  /// Of the rectangle's corners, in points.
  Q_PROPERTY(double radius MEMBER radius_ NOTIFY styleChanged FINAL)

 public:
  explicit OrvexShadow(QQuickItem* parent = nullptr);

 Q_SIGNALS:
  void styleChanged();

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
  void itemChange(ItemChange change, const ItemChangeData& value) override;

 private:
  QColor color_ = Qt::black;
  double blurRadius_ = 0;
  double radius_ = 0;
};

}  // namespace orvex
