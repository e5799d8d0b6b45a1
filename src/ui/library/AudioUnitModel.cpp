#include "ui/library/AudioUnitModel.h"

#include <algorithm>
#include <array>

namespace orvex {
namespace {

QString codeText(const QString& number) {
  const quint32 code = number.toUInt();
  std::array<char, 4> characters{};
  for (std::size_t i = 0; i < characters.size(); ++i)
    characters[i] = static_cast<char>(code >> (24 - 8 * i) & 0xFF);
  const bool isText = std::ranges::all_of(characters, [](char c) { return c >= ' ' && c <= '~'; });
  const QString text = isText ? QString::fromLatin1(characters.data(), characters.size())
                              : QStringLiteral("0x%1").arg(code, 8, 16, QChar(u'0'));
  return number + QStringLiteral(" · ") + text;
}

}  // namespace

QStringList AudioUnitModel::codeTexts(const QString& codes) {
  QStringList texts;
  for (const QString& number : codes.split(u'-')) texts.append(codeText(number));
  return texts;
}

QVariant AudioUnitModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const AudioUnitItem& effect = source_.items[position(index)];
  switch (role) {
    case Qt::DisplayRole:
    case Name:
      return effect.name;
    case Codes:
      return effect.id;
    case Manufacturer:
      return effect.manufacturer;
    case Version:
      return effect.version;
    case TypeName:
      return effect.typeName;
    case SandboxSafe:
      return effect.sandboxSafe;
    case PassesAUVal:
      return effect.passesAUVal;
    default:
      return {};
  }
}

QHash<int, QByteArray> AudioUnitModel::roleNames() const {
  return {{Name, "name"},
          {Codes, "codes"},
          {Manufacturer, "manufacturer"},
          {Version, "version"},
          {TypeName, "typeName"},
          {SandboxSafe, "sandboxSafe"},
          {PassesAUVal, "passesAUVal"}};
}

}  // namespace orvex
