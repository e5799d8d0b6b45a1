#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <span>
#include <string_view>

namespace orvex {

/// How the icon font draws one of the design's symbols.
struct Glyph {
  /// Mere lines need a bolder hand to stand beside filled shapes.
  enum class Drawing { Filled, Line };
  /// What has to be done to the font's drawing.
  enum class Turn { None, Mirrored, QuarterTurn };

  /// The symbol's name in the design.
  std::u16string_view name;
  char16_t code;
  Drawing drawing = Drawing::Filled;
  Turn turn = Turn::None;
};

/// All symbols that can be drawn, sorted by name.
[[nodiscard]] std::span<const Glyph> symbolTable();

/// The symbol table, for QML. A name that is not in it is a programming error: it is warned about
/// and shown as a question mark.
class OrvexSymbols : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  using QObject::QObject;

  Q_INVOKABLE [[nodiscard]] static QString text(const QString& name);
  Q_INVOKABLE [[nodiscard]] static bool isLine(const QString& name);
  Q_INVOKABLE [[nodiscard]] static bool isMirrored(const QString& name);
  /// Degrees clockwise.
  Q_INVOKABLE [[nodiscard]] static double rotation(const QString& name);
};

}  // namespace orvex
