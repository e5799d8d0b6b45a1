#pragma once

#include <QMarginsF>
#include <QPointer>
#include <QQuickItem>

#include <optional>

namespace orvex {

/// An item of content with room around it, before a background that fills the whole. It does what
/// the panel uses of the toolkit's control, the registration of whose module was 28 % of the work
/// of reading the files for the first frame: what that frame shows is not to need it. Sizes are in
/// points.
class OrvexBox : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT

  /// Fills what the padding leaves.
  Q_PROPERTY(
      QQuickItem* contentItem READ contentItem WRITE setContentItem NOTIFY contentItemChanged FINAL)
  Q_PROPERTY(
      QQuickItem* background READ background WRITE setBackground NOTIFY backgroundChanged FINAL)
  Q_PROPERTY(double implicitContentWidth READ implicitContentWidth NOTIFY
                 implicitContentWidthChanged FINAL)
  Q_PROPERTY(double implicitContentHeight READ implicitContentHeight NOTIFY
                 implicitContentHeightChanged FINAL)

  /// Of all sides, of two and of one: what is set for fewer counts.
  Q_PROPERTY(double padding READ padding WRITE setPadding NOTIFY paddingChanged FINAL)
  Q_PROPERTY(double horizontalPadding READ horizontalPadding WRITE setHorizontalPadding NOTIFY
                 paddingChanged FINAL)
  Q_PROPERTY(double verticalPadding READ verticalPadding WRITE setVerticalPadding NOTIFY
                 paddingChanged FINAL)
  Q_PROPERTY(
      double leftPadding READ leftPadding WRITE setLeftPadding NOTIFY leftPaddingChanged FINAL)
  Q_PROPERTY(double topPadding READ topPadding WRITE setTopPadding NOTIFY topPaddingChanged FINAL)
  Q_PROPERTY(
      double rightPadding READ rightPadding WRITE setRightPadding NOTIFY rightPaddingChanged FINAL)
  Q_PROPERTY(double bottomPadding READ bottomPadding WRITE setBottomPadding NOTIFY
                 bottomPaddingChanged FINAL)
  Q_PROPERTY(double availableWidth READ availableWidth NOTIFY availableWidthChanged FINAL)

 public:
  explicit OrvexBox(QQuickItem* parent = nullptr);
  ~OrvexBox() override;

  [[nodiscard]] QQuickItem* contentItem() const noexcept { return contentItem_; }
  void setContentItem(QQuickItem* item);
  [[nodiscard]] QQuickItem* background() const noexcept { return background_; }
  void setBackground(QQuickItem* item);
  [[nodiscard]] double implicitContentWidth() const;
  [[nodiscard]] double implicitContentHeight() const;

  [[nodiscard]] double padding() const noexcept { return padding_; }
  [[nodiscard]] double horizontalPadding() const { return horizontal_.value_or(padding_); }
  [[nodiscard]] double verticalPadding() const { return vertical_.value_or(padding_); }
  [[nodiscard]] double leftPadding() const { return left_.value_or(horizontalPadding()); }
  [[nodiscard]] double topPadding() const { return top_.value_or(verticalPadding()); }
  [[nodiscard]] double rightPadding() const { return right_.value_or(horizontalPadding()); }
  [[nodiscard]] double bottomPadding() const { return bottom_.value_or(verticalPadding()); }
  void setPadding(double padding) { change(padding_, padding); }
  void setHorizontalPadding(double padding) { change(horizontal_, padding); }
  void setVerticalPadding(double padding) { change(vertical_, padding); }
  void setLeftPadding(double padding) { change(left_, padding); }
  void setTopPadding(double padding) { change(top_, padding); }
  void setRightPadding(double padding) { change(right_, padding); }
  void setBottomPadding(double padding) { change(bottom_, padding); }
  /// The content's.
  [[nodiscard]] double availableWidth() const;

 Q_SIGNALS:
  void contentItemChanged();
  void backgroundChanged();
  void implicitContentWidthChanged();
  void implicitContentHeightChanged();
  void paddingChanged();
  void leftPaddingChanged();
  void topPaddingChanged();
  void rightPaddingChanged();
  void bottomPaddingChanged();
  void availableWidthChanged();

 protected:
  void componentComplete() override;
  void geometryChange(const QRectF& now, const QRectF& before) override;

 private:
  template <typename Value>
  void change(Value& padding, double to) {
    if (padding == to) return;
    const QMarginsF before = paddings();
    padding = to;
    tellPaddings(before);
  }
  [[nodiscard]] QMarginsF paddings() const {
    return QMarginsF(leftPadding(), topPadding(), rightPadding(), bottomPadding());
  }
  void tellPaddings(const QMarginsF& before);
  void layOut();

  QPointer<QQuickItem> contentItem_;
  QPointer<QQuickItem> background_;
  double padding_ = 0;
  std::optional<double> horizontal_;
  std::optional<double> vertical_;
  std::optional<double> left_;
  std::optional<double> top_;
  std::optional<double> right_;
  std::optional<double> bottom_;
  double availableWidth_ = 0;
};

/// A box with a focus scope of its own.
class OrvexPane : public orvex::OrvexBox {
  Q_OBJECT
  QML_ELEMENT

 public:
  explicit OrvexPane(QQuickItem* parent = nullptr) : OrvexBox(parent) { setFlag(ItemIsFocusScope); }
};

}  // namespace orvex
