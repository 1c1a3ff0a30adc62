// Screen measures: 1440 twips to the inch, 96 logical pixels to the inch.
#pragma once

namespace kavr6 {

inline constexpr int kTwipsPerPixel = 15;
constexpr int ToTwips(int pixels) { return pixels * kTwipsPerPixel; }
/// To the nearest pixel.
constexpr int ToPixels(int twips) {
  const int half = twips < 0 ? -kTwipsPerPixel / 2 : kTwipsPerPixel / 2;
  return (twips + half) / kTwipsPerPixel;
}

}  // namespace kavr6
