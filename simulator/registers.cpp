#include "simulator/registers.h"

#include <algorithm>
#include <cmath>

namespace kavr6 {
namespace {

// Currents in ampere, speeds in rev/sec, accelerations in rev/s/s.
constexpr Register kRegisters[] = {
    {"AC", 100, 1, 3000, false, true, 34, 2, 6},
    {"DE", 100, 1, 3000, false, true, 36, 2, 6},
    {"AM", 3000, 1, 3000, false, false, 18, 2, 6},
    {"DM", 3000, 1, 3000, false},
    {"JA", 100, 1, 3000, false},
    {"VE", 1, 0.025, 50, false, true},
    {"VM", 50, 0.025, 50, false},
    {"JS", 10, 0.025, 50, false, false, 3, 2, 240},
    {"CS", 0, -50, 50, false},
    {"DI", 20000, -16e6, 16e6, true, true},
    {kStepsPerTurn, 20000, 1, 65535, true, false, 47},
    {"ER", 4000, 200, 65535, true, false, 22},
    {"ED", 0, 0, 255},
    {"EF", 0, 0, 3},

    {"CC", 2, 0, 20, false, false, 12, 2, 100},
    {"PC", 2, 0, 20, false, false, 12, 2, 100},  // behind CC: it is the one that a save is about
    {"CP", 4, 0, 20, false},
    {"PP", 4, 0, 20, false},
    {"CM", 7, 1, 22, true, false, 44, 1},
    {"PM", 7, 1, 22, true, false, 44, 1},
    {"HG", 960, 0, 65535, true, false, 8},
    {"HP", -4, -32768, 32767, true, false, 10},

    {"SI", 3, 1, 3, true, false, 50, 1},
    {"AI", 3, 1, 3, true, false, 51, 1},
    {"AO", 3, 1, 3, true, false, 52, 1},
    {"BO", 3, 1, 3, true, false, 53, 1},
    {"MO", 3, 1, 8, true, false, 54, 1},
    {"DL", 1, 1, 3, true, false, 55, 1},
    {kJogInputs, 0, 0, 1},
    {"BD", 200, 0, 32000, true, false, 40},

    {"PR", 1, 0, 255, true, false, 62},
    {"BR", 1, 1, 5, true, false, 64},
    {kAddress, '!', 0, 255, true, false, 49, 1},

    {"KD", 2000, 0, 32767},
    {"KF", 10000, 0, 32767},
    {"KI", 500, 0, 32767},
    {"KK", 0, 0, 32767},
    {"KP", 10000, 0, 32767},
    {"KV", 5000, 0, 32767},
    {"PF", 2000, 1, 32000},
    {"PL", 10, 0, 32000},
    {"PT", 10, 0, 32000},
};

int Stored(const DriveImage& image, const Register& row) {
  const auto at = static_cast<std::size_t>(row.place);
  if (row.width == 1) return image[at];
  const int word = image[at] * 256 + image[at + 1];
  return row.least < 0 ? static_cast<std::int16_t>(word) : word;
}

}  // namespace

Registers::Registers() {
  for (const Register& row : kRegisters) values_.emplace(row.letters, row.start);
  kept_ = values_;
}

const Register* Registers::Find(std::string_view letters) {
  for (const Register& row : kRegisters)
    if (row.letters == letters) return &row;
  return nullptr;
}

void Registers::Load(const DriveImage& image) {
  for (const Register& row : kRegisters)
    if (row.place >= 0) Set(row.letters, std::clamp(Stored(image, row) / row.scale, row.least, row.most));
}

void Registers::StoreIn(DriveImage& image) const {
  for (const Register& row : kRegisters) {
    if (row.place < 0) continue;
    const long value = std::lround((*this)[row.letters] * row.scale);
    const auto at = static_cast<std::size_t>(row.place);
    for (int i = 0; i < row.width; ++i)
      image[at + static_cast<std::size_t>(i)] =
          static_cast<std::uint8_t>(value >> (8 * (row.width - 1 - i)) & 0xFF);
  }
  SealDriveImage(image);
}

}  // namespace kavr6
