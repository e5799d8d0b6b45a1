#pragma once

#include "base/SearchIndex.h"
#include "shell/OrvexState.h"
#include "ui/color/LUTCatalog.h"

#include <QPointer>

#include <optional>

namespace orvex {

/// The LUTs of the installed packs, pack by pack in the order of their files. Found by their
/// display name and their pack's name.
class CloudLUTs : public orvex::LUTCatalog {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orvex::OrvexState* state READ state WRITE setState NOTIFY stateChanged REQUIRED FINAL)

 public:
  [[nodiscard]] OrvexState* state() const noexcept { return state_; }
  void setState(OrvexState* state);
  [[nodiscard]] int total() const override { return static_cast<int>(entries_.size()); }

  /// What a file of a pack, by its path there, is called on its card: its name without the
  /// extension; one that begins with "lutpack" and a number, in letters of any case, as "LUT Pack"
  /// and the number of two digits at least, followed by what comes after it. Nothing where it is no
  /// LUT, or would not lie in the pack.
  [[nodiscard]] static std::optional<QString> displayName(const QString& file);

 Q_SIGNALS:
  void stateChanged();

 private:
  void rebuild();
  [[nodiscard]] QList<qsizetype> matching(QStringView search) const override;
  [[nodiscard]] Entry entry(qsizetype position) const override;

  QPointer<OrvexState> state_;
  QList<Entry> entries_;
  SearchIndex index_;
};

}  // namespace orvex
