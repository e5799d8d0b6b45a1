#pragma once

#include <QObject>
#include <QString>

namespace orvex {

/// A transient message to the user.
struct OrvexToast {
  Q_GADGET
  Q_PROPERTY(QString message MEMBER message)
  // As its number: views cannot compare enumerators that they read from a value.
  Q_PROPERTY(int kind READ kindNumber)

 public:
  enum class Kind { success, error, info };
  Q_ENUM(Kind)

  QString message;
  Kind kind = Kind::info;

  [[nodiscard]] int kindNumber() const noexcept { return static_cast<int>(kind); }

  friend bool operator==(const OrvexToast&, const OrvexToast&) = default;
};

}  // namespace orvex
