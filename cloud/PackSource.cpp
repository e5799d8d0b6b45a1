#include "cloud/PackSource.h"

#include "base/Json.h"
#include "base/SmallFile.h"
#include "cloud/Transcript.h"
#include "services/PackNames.h"

#include <QSet>

#include <algorithm>

namespace orvex {
namespace {

const QString kShared = QStringLiteral("shared");

[[noreturn]] void refuse(const QString& where, const QString& what) {
  throw CatalogSourceError(QStringLiteral("%1: %2").arg(where, what));
}

// Sorted, without what is hidden.
QList<QString> namesIn(const Directory& folder, const QString& where) {
  QList<QString> texts;
  for (const QByteArray& name : visibleNames(folder.names())) {
    texts.append(QString::fromUtf8(name));
    if (texts.last().toUtf8() != name)
      refuse(where + u'/' + texts.last(),
             QStringLiteral("ad UTF-8 değil. Dosyayı ya da klasörü yeniden adlandır."));
  }
  return texts;
}

UniversalPackAsset measure(const Directory& folder, const QString& name) {
  const FileTranscript transcript =
      transcribe(folder.file(name.toUtf8()), folder.path(name.toUtf8()));
  return {.file = name, .sha256 = transcript.sha256, .bytes = transcript.bytes, .url = {}};
}

class PackReader {
 public:
  PackReader(const Directory& packs, const QString& id)
      : where_(QStringLiteral("packs/") + id), folder_(packs.folder(id.toUtf8())) {
    if (!isPackName(id))
      refuse(where_, QStringLiteral("paket kimliği olamaz. Klasöre nokta ile başlamayan, eğik "
                                    "çizgi ve denetim karakteri içermeyen kısa bir ad ver."));
    pack_.id = id;
    readDescription();
    for (const QString& name : namesIn(folder_, where_)) {
      if (name == u"pack.json") continue;
      if (name == kShared)
        readFiles(kShared, {}, folder_.folder("shared"));
      else if (name == u"variants")
        readVariants(folder_.folder("variants"));
      else
        refuse(where_ + u'/' + name,
               QStringLiteral("burada yayımlanmaz. shared/ ya da variants/<hedef>/ altına taşı."));
    }
    refuseClashes();
  }

  [[nodiscard]] PackSource take() { return std::move(pack_); }

 private:
  void readDescription() {
    constexpr qsizetype kMaximum = 1024 * 1024;
    const auto json = readSmallFile(folder_.descriptor(), "pack.json", kMaximum);
    if (!json)
      refuse(where_ + QStringLiteral("/pack.json"),
             QStringLiteral("yok ya da okunamıyor. name, version ve targets ile yaz."));
    try {
      const JsonReader root(*json);
      pack_.name = root[u"name"].string();
      pack_.version = root[u"version"].string();
      pack_.targets = root[u"targets"].list(&JsonReader::string);
    } catch (const JsonError& error) {
      refuse(where_ + QStringLiteral("/pack.json"), error.description());
    }
    if (pack_.name.trimmed().isEmpty())
      refuse(where_ + QStringLiteral("/pack.json"),
             QStringLiteral("name boş. Pakete görünecek bir ad ver."));
    if (!isPackName(pack_.version))
      refuse(where_ + QStringLiteral("/pack.json"),
             QStringLiteral("version \"%1\" olamaz. 1.2.0 gibi bir sürüm yaz.").arg(pack_.version));
    if (pack_.targets.isEmpty() || !std::ranges::all_of(pack_.targets, &isPackName))
      refuse(
          where_ + QStringLiteral("/pack.json"),
          QStringLiteral("targets boş ya da geçersiz. [\"final-cut\"] gibi en az bir hedef yaz."));
  }

  void readVariants(const Directory& variants) {
    for (const QString& target : namesIn(variants, where_ + QStringLiteral("/variants"))) {
      const QString name = QStringLiteral("variants/") + target;
      if (!pack_.targets.contains(target))
        refuse(where_ + u'/' + name,
               QStringLiteral("pack.json içindeki targets bu hedefi saymıyor. Hedefi ekle ya da "
                              "klasörü sil."));
      readFiles(name, target, variants.folder(target.toUtf8()));
    }
  }

  void readFiles(const QString& name, const QString& target, Directory folder) {
    PackSourceFolder read{name, target, std::move(folder), {}};
    for (const QString& file : namesIn(read.folder, where_ + u'/' + name)) {
      if (!isAssetName(file))
        refuse(where_ + u'/' + name + u'/' + file,
               QStringLiteral("paket dosyası adı olamaz. Dosyayı yeniden adlandır."));
      read.assets.append(measure(read.folder, file));
    }
    pack_.folders.push_back(std::move(read));
  }

  // All files of one target come to lie in one folder, perhaps of a system that takes capital and
  // small letters for the same.
  void refuseClashes() const {
    for (const QString& target : pack_.targets) {
      QSet<QString> taken;
      for (const PackSourceFolder& folder : pack_.folders) {
        if (!folder.target.isEmpty() && folder.target != target) continue;
        for (const UniversalPackAsset& asset : folder.assets) {
          const QString key = asset.file.normalized(QString::NormalizationForm_C).toCaseFolded();
          if (taken.contains(key))
            refuse(where_ + u'/' + folder.name + u'/' + asset.file,
                   QStringLiteral("\"%1\" hedefinde bu ad iki kez geçiyor. Dosyalardan birini "
                                  "yeniden adlandır.")
                       .arg(target));
          taken.insert(key);
        }
      }
    }
  }

  QString where_;
  Directory folder_;
  PackSource pack_;
};

}  // namespace

std::vector<PackSource> readPackSources(const Directory& packs) {
  std::vector<PackSource> sources;
  for (const QString& id : namesIn(packs, QStringLiteral("packs")))
    sources.push_back(PackReader(packs, id).take());
  return sources;
}

}  // namespace orvex
