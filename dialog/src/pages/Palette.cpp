#include "pages/Palette.h"

#include <array>

namespace ZelDebugDialog::dialog {

namespace {

/// On white, and on dark grey; each has a contrast of at least 4.5 to 1.
struct RoleColour {
  const char *role;
  QRgb light;
  QRgb dark;
};

constexpr std::array<RoleColour, 8> roleColours{{
    {"head", 0xff6c3fb4, 0xffc4a5f5},
    {"target", 0xff0b7261, 0xff5fd3bc},
    {"connection", 0xffa2497a, 0xfff09ac8},
    {"option", 0xff1a5fb4, 0xff86b8f7},
    {"name", 0xff6b5b00, 0xffd9c65a},
    {"value", 0xffa34700, 0xffffa96b},
    {"ignored", 0xff6a6a6a, 0xffa8a8a8},
    {"lost", 0xffb3261e, 0xffff8f85},
}};

QColor chosen(const QPalette &palette, QRgb light, QRgb dark) {
  return QColor::fromRgba(isDark(palette) ? dark : light);
}

} // namespace

bool isDark(const QPalette &palette) {
  return palette.color(QPalette::Base).lightness() <
         palette.color(QPalette::Text).lightness();
}

QColor toneColour(Tone tone, const QPalette &palette) {
  switch (tone) {
  case Tone::disabled:
    return palette.color(QPalette::Disabled, QPalette::WindowText);
  case Tone::quiet:
    return quietColour(palette);
  case Tone::fault:
    return faultColour(palette);
  case Tone::doubt:
    return doubtColour(palette);
  case Tone::link:
    return palette.color(QPalette::Link);
  case Tone::plain:
    break;
  }
  return palette.color(QPalette::Text);
}

QColor roleColour(const std::string &role, const QPalette &palette) {
  for (const RoleColour &row : roleColours)
    if (role == row.role)
      return chosen(palette, row.light, row.dark);
  return palette.color(QPalette::Text);
}

QColor faultColour(const QPalette &palette) {
  return chosen(palette, 0xffb3261e, 0xffff8f85);
}

QColor doubtColour(const QPalette &palette) {
  return chosen(palette, 0xff8a5a00, 0xffffc966);
}

QColor markColour(const QPalette &palette) {
  return chosen(palette, 0xffffe9a8, 0xff5a4a12);
}

QColor quietColour(const QPalette &palette) {
  return chosen(palette, 0xff5f5f5f, 0xffb0b0b0);
}

QColor remarkColour(const QPalette &palette) {
  return chosen(palette, 0xfffff3cd, 0xff4a3d10);
}

} // namespace ZelDebugDialog::dialog
