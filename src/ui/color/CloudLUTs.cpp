#include "ui/color/CloudLUTs.h"

#include "base/FileUrl.h"

namespace orvex {
namespace {

constexpr QStringView kNumberedPrefix = u"lutpack";
static_assert(kNumberedPrefix.size() == 7);

bool isDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

}  // namespace

std::optional<QString> CloudLUTs::displayName(const QString& file) {
  if (file.startsWith(u"../") || file.contains(u"/../")) return std::nullopt;
  const QString last = file.sliced(file.lastIndexOf(u'/') + 1);
  const qsizetype dot = last.lastIndexOf(u'.');
  // What a name begins with is no extension.
  if (dot <= 0 || last.sliced(dot).toLower() != u".cube") return std::nullopt;
  const QString name = last.first(dot);
  qsizetype begin = kNumberedPrefix.size();
  qsizetype end = begin;
  while (end < name.size() && isDigit(name[end])) ++end;
  if (end == begin || name.first(begin).toLower() != kNumberedPrefix) return name;
  while (begin < end && name[begin] == u'0') ++begin;
  return QStringLiteral("LUT Pack ") + name.sliced(begin, end - begin).rightJustified(2, u'0') +
         name.sliced(end);
}

void CloudLUTs::setState(OrvexState* state) {
  if (state_ == state) return;
  if (state_) disconnect(state_, nullptr, this, nullptr);
  state_ = state;
  if (state_) connect(state_, &OrvexState::installedPacksChanged, this, &CloudLUTs::rebuild);
  Q_EMIT stateChanged();
  rebuild();
}

void CloudLUTs::rebuild() {
  QList<Entry> entries;
  index_ = SearchIndex();
  const QList<UniversalInstalledPack> packs =
      state_ ? state_->installedPacks() : QList<UniversalInstalledPack>();
  for (const UniversalInstalledPack& pack : packs) {
    const QByteArray folder = filePath(pack.directoryURL);
    for (const QString& file : pack.files) {
      const auto name = displayName(file);
      if (!name) continue;
      entries.append({*name, pack.name + QStringLiteral(" • v") + pack.version,
                      fileUrl(folder + '/' + file.toUtf8()), pack.directoryURL});
      index_.add({*name, pack.name});
    }
  }
  replace([&] { entries_ = std::move(entries); });
}

QList<qsizetype> CloudLUTs::matching(QStringView search) const {
  return index_.find(search);
}

LUTCatalog::Entry CloudLUTs::entry(qsizetype position) const {
  return entries_.value(position);
}

}  // namespace orvex
