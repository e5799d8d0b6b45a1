#pragma once

#include "engines/AudioUnitRegistry.h"
#include "ui/library/LibraryModel.h"

namespace orvex {

/// The audio effects, found by name and manufacturer.
class AudioUnitModel : public orvex::LibraryModel {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orvex::AudioUnitRegistry* registry READ registry WRITE setRegistry NOTIFY
                 registryChanged FINAL)

 public:
  enum Role {
    Name = Qt::UserRole,
    Codes,
    Manufacturer,
    Version,
    TypeName,
    SandboxSafe,
    PassesAUVal,
  };

  /// The three numbers of `codes` as a person reads them: "1635083896 · aufx", or in hexadecimal
  /// where a number's four bytes are no text.
  Q_INVOKABLE [[nodiscard]] static QStringList codeTexts(const QString& codes);

  [[nodiscard]] AudioUnitRegistry* registry() const noexcept { return source_.registry; }
  void setRegistry(AudioUnitRegistry* registry) { observe(source_, registry); }

  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

 protected:
  [[nodiscard]] QList<qsizetype> matching(QStringView search) const override {
    return source_.matching(search);
  }

 private:
  Source<AudioUnitRegistry, AudioUnitItem> source_;
};

}  // namespace orvex
