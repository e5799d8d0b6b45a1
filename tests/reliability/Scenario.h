#pragma once

#include <QByteArray>

#include <functional>
#include <string>

namespace orvex {

/// A change from one whole state to another, in a folder.
struct Scenario {
  std::string name;
  std::function<void(const QByteArray& folder)> prepare;
  /// Throws a described error where it is refused.
  std::function<void(const QByteArray& folder)> change;
  /// What whoever looks finds.
  std::function<std::string(const QByteArray& folder)> state;
  std::string before;
  std::string after;
  /// What is wrong after whatever happened, where `found` was found, and the next change.
  std::function<std::string(const QByteArray& folder, const std::string& found)> aftermath;
  /// As on a file system that cannot exchange two names in one step.
  bool withoutExchange = false;
  /// A change that is refused may have been made all the same.
  bool maybeDone = false;
};

}  // namespace orvex
