#include "adapters/qt/windows/style/colours.h"

#include <algorithm>
#include <cmath>

#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::style {
namespace {

struct Shade {
  QRgb light;
  QRgb dark;
};

constexpr Shade kInk{0xff1a1d21, 0xffe8eaed};
constexpr Shade kGreyedInk{0xff858b94, 0xff838991};
constexpr Shade kGround{0xfff2f3f5, 0xff26282b};
constexpr Shade kWhite{0xffffffff, 0xffffffff};

struct ColourRow {
  QPalette::ColorRole role;
  Shade shade;
};

constexpr ColourRow kColours[] = {
    {QPalette::Window, kGround},
    {QPalette::WindowText, kInk},
    {QPalette::Base, {0xffffffff, 0xff1a1c1e}},
    {QPalette::AlternateBase, {0xfff3f7fb, 0xff212427}},
    {QPalette::Text, kInk},
    {QPalette::PlaceholderText, {0xff626a74, 0xff9aa1aa}},
    {QPalette::Button, {0xffe7e9ec, 0xff36393e}},
    {QPalette::ButtonText, kInk},
    {QPalette::Highlight, {0xff1c6bb0, 0xff2c75bb}},
    {QPalette::HighlightedText, kWhite},
    {QPalette::Link, {0xff0b61a8, 0xff74b6f3}},
    {QPalette::LinkVisited, {0xff6a3fa0, 0xffc1a3ee}},
    {QPalette::ToolTipBase, {0xfffffbe6, 0xff3a3d42}},
    {QPalette::ToolTipText, kInk},
    {QPalette::BrightText, kWhite},
    {QPalette::Light, {0xffffffff, 0xff4a4e54}},
    {QPalette::Midlight, {0xfff0f1f3, 0xff3e4147}},
    {QPalette::Mid, {0xffb9bec5, 0xff5a5f66}},
    {QPalette::Dark, {0xff666c75, 0xff959ba4}},
    {QPalette::Shadow, {0xff4a4f57, 0xff0c0d0e}},
};

constexpr ColourRow kGreyed[] = {
    {QPalette::WindowText, kGreyedInk},
    {QPalette::Text, kGreyedInk},
    {QPalette::ButtonText, kGreyedInk},
    {QPalette::PlaceholderText, {0xffa5abb3, 0xff6a7078}},
    {QPalette::Base, kGround},
    {QPalette::Highlight, {0xffc9ced5, 0xff484c52}},
    {QPalette::HighlightedText, {0xff5d636c, 0xffb4b9c0}},
};

double Luminance(const QColor& colour) {
  const auto part = [](double share) {
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

}  // namespace

Scheme SchemeOf(const QPalette& palette) {
  const bool dark = Luminance(palette.color(QPalette::Active, QPalette::WindowText)) >
                    Luminance(palette.color(QPalette::Active, QPalette::Window));
  return dark ? Scheme::Dark : Scheme::Light;
}

QPalette PaletteOf(Scheme scheme) {
  QPalette palette;
  const auto colour = [scheme](const ColourRow& row) {
    return QColor::fromRgb(scheme == Scheme::Dark ? row.shade.dark : row.shade.light);
  };
  for (const ColourRow& row : kColours) palette.setColor(QPalette::All, row.role, colour(row));
  for (const ColourRow& row : kGreyed) palette.setColor(QPalette::Disabled, row.role, colour(row));
  return palette;
}

QColor Outline(const QPalette& palette, bool enabled) {
  return palette.color(QPalette::Active, enabled ? QPalette::Dark : QPalette::Mid);
}

QColor Ring(const QPalette& palette) { return palette.color(QPalette::Active, QPalette::Link); }

QColor NoteInk(const QColor& ink, const QColor& ground) {
  constexpr double kShare = 0.72;
  return widgets::Mixed(ground, ink, kShare);
}

QColor Hovered(const QColor& fill, const QPalette& palette) {
  return widgets::Mixed(fill, palette.color(QPalette::Highlight), 0.12);
}

QColor QuietSelection(const QPalette& palette) {
  return widgets::Mixed(palette.color(QPalette::Active, QPalette::Base),
                        palette.color(QPalette::Active, QPalette::Text), 0.18);
}

double Contrast(const QColor& a, const QColor& b) {
  constexpr double kFlare = 0.05;
  const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
  return (lighter + kFlare) / (darker + kFlare);
}

}  // namespace kavr6::style
