#include "ui/OrvexSymbols.h"

#include <QtDebug>

#include <algorithm>
#include <array>

namespace orvex {
namespace {

constexpr char16_t kUnknown = u'\ue8fd';

using enum Glyph::Drawing;
using enum Glyph::Turn;

constexpr std::array kSymbols = {
    Glyph{u"arrow.clockwise", u'\ue5d5', Line},
    Glyph{u"arrow.triangle.2.circlepath", u'\ue863', Line},
    Glyph{u"arrow.triangle.2.circlepath.circle.fill", u'\ue2e7'},
    Glyph{u"arrow.up", u'\ue5d8', Line},
    Glyph{u"arrow.uturn.backward", u'\ue166', Line},
    Glyph{u"arrow.uturn.forward", u'\ue15a', Line},
    Glyph{u"backward.end.fill", u'\ue045'},
    Glyph{u"backward.frame.fill", u'\ue037', Filled, Mirrored},
    Glyph{u"bolt.fill", u'\uea0b'},
    Glyph{u"bolt.horizontal.fill", u'\uea0b', Filled, QuarterTurn},
    Glyph{u"camera.filters", u'\ueaeb'},
    Glyph{u"checkmark.circle.fill", u'\ue86c'},
    Glyph{u"chevron.left", u'\ue5cb', Line},
    Glyph{u"chevron.right", u'\ue5cc', Line},
    Glyph{u"circle.lefthalf.filled", u'\ueb37'},
    Glyph{u"doc.on.clipboard", u'\ue14f'},
    Glyph{u"doc.on.doc", u'\ue14d'},
    Glyph{u"exclamationmark.triangle.fill", u'\ue002'},
    Glyph{u"folder", u'\ue2c7'},
    Glyph{u"folder.badge.plus", u'\ue2cc'},
    Glyph{u"forward.end.fill", u'\ue044'},
    Glyph{u"forward.frame.fill", u'\ue037'},
    Glyph{u"gauge.with.dots.needle.50percent", u'\ue9e4', Line},
    Glyph{u"gauge.with.dots.needle.67percent", u'\ue9e4', Line},
    Glyph{u"gobackward", u'\ue042', Line},
    Glyph{u"goforward", u'\ue042', Line, Mirrored},
    Glyph{u"house.fill", u'\ue88a'},
    Glyph{u"icloud.and.arrow.down", u'\ue2c0'},
    Glyph{u"info.circle.fill", u'\ue88e'},
    Glyph{u"magnifyingglass", u'\ue8b6', Line},
    Glyph{u"paperplane.fill", u'\ue163'},
    Glyph{u"pause.fill", u'\ue034'},
    Glyph{u"play.fill", u'\ue037'},
    Glyph{u"point.topleft.down.curvedto.point.bottomright.up", u'\ue6e1', Line},
    Glyph{u"rectangle.split.2x1", u'\uf06d', Filled, QuarterTurn},
    Glyph{u"shippingbox.fill", u'\ue1a1'},
    Glyph{u"slider.horizontal.3", u'\ue429', Line},
    Glyph{u"sparkles.rectangle.stack", u'\ue65f'},
    Glyph{u"square.3.layers.3d", u'\ue53b'},
    Glyph{u"textformat", u'\ue262', Line},
    Glyph{u"timeline.selection", u'\ueb85'},
    Glyph{u"trash", u'\ue872'},
    Glyph{u"wand.and.stars", u'\ue663'},
    Glyph{u"waveform", u'\ue1b8', Line},
    Glyph{u"xmark", u'\ue5cd', Line},
};
static_assert(std::ranges::is_sorted(kSymbols, {}, &Glyph::name));

const Glyph* find(const QString& name) {
  const std::u16string_view key(reinterpret_cast<const char16_t*>(name.utf16()),
                                static_cast<std::size_t>(name.size()));
  const auto* found = std::ranges::lower_bound(kSymbols, key, {}, &Glyph::name);
  return found != kSymbols.end() && found->name == key ? found : nullptr;
}

}  // namespace

std::span<const Glyph> symbolTable() {
  return kSymbols;
}

QString OrvexSymbols::text(const QString& name) {
  const Glyph* glyph = find(name);
  if (glyph == nullptr) qWarning("no symbol is named \"%s\"", qUtf8Printable(name));
  return QChar(glyph != nullptr ? glyph->code : kUnknown);
}

bool OrvexSymbols::isLine(const QString& name) {
  const Glyph* glyph = find(name);
  return glyph != nullptr && glyph->drawing == Line;
}

bool OrvexSymbols::isMirrored(const QString& name) {
  const Glyph* glyph = find(name);
  return glyph != nullptr && glyph->turn == Mirrored;
}

double OrvexSymbols::rotation(const QString& name) {
  const Glyph* glyph = find(name);
  return glyph != nullptr && glyph->turn == QuarterTurn ? 90 : 0;
}

}  // namespace orvex
