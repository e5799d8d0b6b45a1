#pragma once

#include <QString>

#include <exception>

namespace orvex {

/// A failure whose description is put before a person as it stands: in Turkish, saying what failed
/// and, where something can be done about it, what.
class DescribedError : public std::exception {
 public:
  explicit DescribedError(QString description)
      : description_(std::move(description)), utf8_(description_.toUtf8()) {}

  [[nodiscard]] const QString& description() const noexcept { return description_; }
  [[nodiscard]] const char* what() const noexcept override { return utf8_.constData(); }

 private:
  QString description_;
  QByteArray utf8_;
};

/// The description of `failure`, or what it says of itself where it is not ours.
[[nodiscard]] QString descriptionOf(const std::exception_ptr& failure);

/// Work was given up because a stop was requested. Nobody is told: who asked knows.
class Stopped final : public std::exception {
 public:
  [[nodiscard]] const char* what() const noexcept override { return "stopped"; }
};

}  // namespace orvex
