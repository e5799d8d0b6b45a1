#pragma once

#include <QObject>
#include <QString>

namespace orvex {

/// A transient message to the user.
struct OrvexToast {
  Q_GADGET
  Q_PROPERTY(QString message MEMBER message)
  Q_PROPERTY(Kind kind MEMBER kind)

 public:
  enum class Kind { success, error, info };
  Q_ENUM(Kind)

  QString message;
  Kind kind = Kind::info;

  friend bool operator==(const OrvexToast&, const OrvexToast&) = default;
};

}  // namespace orvex
