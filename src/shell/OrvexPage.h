#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <optional>

namespace orvex {

/// A page of the panel. The cases are in navigation order.
class OrvexPage {
  Q_GADGET
  Q_PROPERTY(QString id READ id CONSTANT FINAL)
  Q_PROPERTY(QString title READ title CONSTANT FINAL)
  Q_PROPERTY(QString icon READ icon CONSTANT FINAL)

 public:
  enum Case { home, timeline, speed, motion, audio, color, fxplug, updates, request };
  Q_ENUM(Case)

  constexpr OrvexPage() noexcept = default;
  constexpr OrvexPage(Case page) noexcept : case_(page) {}  // NOLINT(google-explicit-constructor)

  [[nodiscard]] static const QList<OrvexPage>& allCases();
  /// The page whose raw value is exactly `raw`, or nothing.
  [[nodiscard]] static std::optional<OrvexPage> fromRawValue(QStringView raw);

  [[nodiscard]] constexpr Case value() const noexcept { return case_; }
  [[nodiscard]] QString rawValue() const;
  /// The same as the raw value.
  [[nodiscard]] QString id() const { return rawValue(); }
  [[nodiscard]] QString title() const;
  /// The name of the page's symbol.
  [[nodiscard]] QString icon() const;

  friend constexpr bool operator==(OrvexPage, OrvexPage) noexcept = default;

 private:
  Case case_ = home;
};

}  // namespace orvex
