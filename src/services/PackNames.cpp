#include "services/PackNames.h"

#include "services/UniversalPackClientError.h"

#include <QUuid>

#include <algorithm>

namespace orvex {
namespace {

using Kind = UniversalPackClientError::Kind;

constexpr qsizetype kMaximumName = 255;
constexpr qsizetype kUuid = 36;
// The dot before and the role behind the identifier.
constexpr qsizetype kHiddenExtra = 2 + kUuid;

bool isBareName(const QString& name) {
  // What is not valid in UTF-16 would share the name of its replacement characters.
  return !name.isEmpty() && name != u"." && name != u".." && name.isValidUtf16() &&
         std::ranges::none_of(name,
                              [](QChar c) {
                                return c == u'/' || c == u'\\' ||
                                       c.category() == QChar::Other_Control;
                              }) &&
         name.toUtf8().size() <= kMaximumName;
}

}  // namespace

bool isPackName(const QString& name) {
  return isBareName(name) && !name.startsWith(u'.') &&
         name.toUtf8().size() <= kMaximumName - kHiddenExtra;
}

bool isAssetName(const QString& name) {
  return isBareName(name) &&
         name.compare(QLatin1StringView(kPackRecordName), Qt::CaseInsensitive) != 0;
}

QByteArray packFolderName(const QString& id) {
  if (!isPackName(id)) throw UniversalPackClientError(Kind::InvalidCatalog);
  return id.toUtf8();
}

QByteArray HiddenPackName::make() const {
  return '.' + id + static_cast<char>(role) + QUuid::createUuid().toByteArray(QUuid::WithoutBraces);
}

std::optional<HiddenPackName> HiddenPackName::parse(const QByteArray& name) {
  const qsizetype end = name.size() - kUuid - 1;
  if (end < 2 || name.front() != '.') return std::nullopt;
  const auto role = static_cast<Role>(name[end]);
  if (role != Role::Staging && role != Role::Aside) return std::nullopt;
  if (QUuid::fromString(QLatin1StringView(name.last(kUuid))).isNull()) return std::nullopt;
  return HiddenPackName{name.sliced(1, end - 1), role};
}

}  // namespace orvex
