#pragma once

#include "base/Background.h"

#include <QColor>
#include <QImage>
#include <QQuickItem>

namespace orvex {

/// A blurred disc, its blur included in the item's implicit size. It is painted once per size, on a
/// worker thread and after the window's next frame, and is then as cheap to move as any picture.
class OrvexDisc : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT

  /// Of the disc before it is blurred, in points.
  Q_PROPERTY(double diameter MEMBER diameter_ NOTIFY styleChanged FINAL)
  /// Standard deviation, in points.
  Q_PROPERTY(double blurRadius MEMBER blurRadius_ NOTIFY styleChanged FINAL)
  /// The part of the item that can ever be seen, in its own coordinates; only that is painted.
  Q_PROPERTY(QRectF seen MEMBER seen_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY styleChanged FINAL)

 public:
  explicit OrvexDisc(QQuickItem* parent = nullptr);

 Q_SIGNALS:
  void styleChanged();

 protected:
  void componentComplete() override;
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
  void itemChange(ItemChange change, const ItemChangeData& value) override;

 private:
  struct Recipe {
    double radius = 0;
    double deviation = 0;
    double scale = 0;
    QColor color;
    // Pixels of the whole picture.
    QRect part;

    friend bool operator==(const Recipe&, const Recipe&) = default;
    // Of the whole picture, pixels.
    [[nodiscard]] int side() const;
    // Unfinished where it was asked to stop.
    [[nodiscard]] QImage render(const std::stop_token& stop) const;
  };

  void restyle();
  void paint();

  double diameter_ = 0;
  double blurRadius_ = 1;
  QRectF seen_;
  QColor color_ = Qt::transparent;
  Recipe wanted_;
  Recipe rendered_;
  Background worker_;
  QImage image_;
  bool imageChanged_ = false;
  bool frameShown_ = false;
};

}  // namespace orvex
