#pragma once

#include <QByteArray>
#include <QList>
#include <QLocale>
#include <QStringView>

#include <memory>
#include <span>

struct UCollator;

namespace orvex {

/// The order of texts in a language, ignoring case but not accents. Texts are not compared pair by
/// pair: each is turned once into a key, and keys compare as bytes. Any thread.
class Collation {
 public:
  /// The language in which the user has lists sorted and texts searched.
  [[nodiscard]] static QLocale userLocale();

  explicit Collation(const QLocale& locale = userLocale());

  /// Two texts compare as their keys do.
  [[nodiscard]] QByteArray key(QStringView text) const;

  /// The positions of `names` in ascending order; names that compare equal keep their order.
  [[nodiscard]] QList<qsizetype> sorted(std::span<const QString> names) const;

 private:
  struct Close {
    void operator()(UCollator* collator) const noexcept;
  };
  std::unique_ptr<UCollator, Close> collator_;
};

}  // namespace orvex
