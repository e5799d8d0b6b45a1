#pragma once

#include "ui/color/LUTPreviews.h"

#include <QQuickItem>

namespace orvex {

/// Shows what a LUT makes of the common picture, with rounded corners. Without a file it shows that
/// picture itself. Asks for it only while it can be seen.
class LUTPreview : public QQuickItem, private LUTPreviews::Viewer {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orvex::LUTPreviews* previews READ previews WRITE setPreviews NOTIFY previewsChanged
                 REQUIRED FINAL)
  Q_PROPERTY(QUrl file READ file WRITE setFile NOTIFY fileChanged FINAL)
  /// How much of the picture, from the left, shows the original: 0 to 1.
  Q_PROPERTY(double split READ split WRITE setSplit NOTIFY splitChanged FINAL)
  /// Of the corners, in points.
  Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY radiusChanged FINAL)
  Q_PROPERTY(bool ready READ isReady NOTIFY stateChanged FINAL)
  /// Why there is no picture, in Turkish; empty while that is not known.
  Q_PROPERTY(QString error READ error NOTIFY stateChanged FINAL)
  /// The LUT's own contents are why.
  Q_PROPERTY(bool broken READ isBroken NOTIFY stateChanged FINAL)

 public:
  explicit LUTPreview(QQuickItem* parent = nullptr);
  ~LUTPreview() override;

  [[nodiscard]] LUTPreviews* previews() const noexcept { return previews_; }
  void setPreviews(LUTPreviews* previews);
  [[nodiscard]] const QUrl& file() const noexcept { return file_; }
  void setFile(const QUrl& file);
  [[nodiscard]] double split() const noexcept { return split_; }
  void setSplit(double split);
  [[nodiscard]] double radius() const noexcept { return radius_; }
  void setRadius(double radius);
  [[nodiscard]] bool isReady() const noexcept { return !picture_.isNull(); }
  [[nodiscard]] const QString& error() const noexcept { return error_.reason; }
  [[nodiscard]] bool isBroken() const noexcept { return error_.isBroken; }

 Q_SIGNALS:
  void previewsChanged();
  void fileChanged();
  void splitChanged();
  void radiusChanged();
  void stateChanged();

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
  void itemChange(ItemChange change, const ItemChangeData& value) override;
  void geometryChange(const QRectF& now, const QRectF& before) override;
  void componentComplete() override;

 private:
  void show(const LUTPreviewResult& preview) override;
  [[nodiscard]] bool isInView() const override;
  void setState(const QImage& picture, const LUTPreviewError& error);
  // What was shown before is replaced when the new one is there.
  void ask();
  void redraw();
  [[nodiscard]] QImage drawn(double scale) const;

  QPointer<LUTPreviews> previews_;
  QUrl file_;
  double split_ = 0;
  double radius_ = 0;
  QImage picture_;
  LUTPreviewError error_;
  bool dirty_ = true;
};

}  // namespace orvex
