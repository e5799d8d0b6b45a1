#pragma once

#include <QColor>
#include <QQuickItem>

namespace orvex {

/// A rounded shape with a gradient from its top left to its bottom right corner and an outline that
/// lies within it. Equal surfaces of a window share one picture.
class OrvexSurface : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QColor startColor MEMBER startColor_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor endColor MEMBER endColor_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor outlineColor MEMBER outlineColor_ NOTIFY styleChanged FINAL)
  /// In points; 0 for none.
  Q_PROPERTY(double outlineWidth MEMBER outlineWidth_ NOTIFY styleChanged FINAL)
  /// Of the corners, in points.
  Q_PROPERTY(double radius MEMBER radius_ NOTIFY styleChanged FINAL)

 public:
  explicit OrvexSurface(QQuickItem* parent = nullptr);

 Q_SIGNALS:
  void styleChanged();

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
  void itemChange(ItemChange change, const ItemChangeData& value) override;

 private:
  QColor startColor_ = Qt::transparent;
  QColor endColor_ = Qt::transparent;
  QColor outlineColor_ = Qt::transparent;
  double outlineWidth_ = 1;
  double radius_ = 0;
};

}  // namespace orvex
