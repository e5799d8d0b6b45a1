#pragma once

#include "base/Collation.h"

#include <QByteArray>
#include <QList>
#include <QStringView>

#include <initializer_list>

namespace orvex {

/// Answers in which of many items a text occurs, by the rules of a language and ignoring case.
/// Canonically equivalent texts are the same, and a letter is not found in the same letter with a
/// combining mark on it. Texts are folded once, when they are added.
class SearchIndex {
 public:
  explicit SearchIndex(const QLocale& locale = Collation::userLocale());

  /// Adds the next item with the texts that it is found by.
  void add(std::initializer_list<QStringView> texts);
  [[nodiscard]] qsizetype count() const noexcept { return ends_.size(); }

  /// The positions, ascending, of the items one of whose texts contains `query` without the white
  /// space around it. Every item when nothing is left of the query.
  [[nodiscard]] QList<qsizetype> find(QStringView query) const;

 private:
  [[nodiscard]] QByteArray folded(QStringView text) const;

  bool dottedI_;
  // The folded texts of all items in UTF-8, each with a byte behind it that UTF-8 does not have.
  QByteArray texts_;
  // Where in `texts_` each item ends.
  QList<qsizetype> ends_;
};

}  // namespace orvex
