#pragma once

#include "base/Sha256.h"
#include "services/PackStore.h"

#include <QMap>

namespace orvex {

/// A pack together with the bytes of its files.
struct TestPack {
  UniversalPack pack;
  QMap<QString, QByteArray> contents;

  TestPack(const QString& id, const QString& version, const QMap<QString, QByteArray>& files)
      : contents(files) {
    pack.id = id;
    pack.name = id + u' ' + version;
    pack.version = version;
    pack.targets = {QStringLiteral("final-cut")};
    for (auto file = files.begin(); file != files.end(); ++file)
      pack.sharedAssets.append({.file = file.key(),
                                .sha256 = QString::fromLatin1(Sha256::of(*file).toHex()),
                                .bytes = file->size(),
                                .url = QStringLiteral("https://localhost/file")});
  }

  /// Brings the files in pieces.
  [[nodiscard]] PackFetch fetch() const {
    return [this](const UniversalPackAsset& asset, const auto& sink) {
      const QByteArray bytes = contents.value(asset.file);
      for (qsizetype at = 0; at < bytes.size(); at += kPiece)
        sink(QByteArrayView(bytes).sliced(at, std::min(kPiece, bytes.size() - at)));
    };
  }

  void installIn(const PackStore& store) const { store.install(pack, fetch(), {}); }

 private:
  static constexpr qsizetype kPiece = 1000;
};

}  // namespace orvex
