#include "simulator/factory_image.h"

#include <string_view>

namespace kavr6 {
namespace {

/// One number, big-endian, or one text padded with blanks.
struct Field {
  std::size_t width;
  std::uint32_t value;
  std::string_view text = {};
};

// All fields in the order of their positions. Speeds are in quarter-rpm, accelerations in 10 rpm/s, currents
// in hundredths of an ampere; a number of four bytes is an exponent e and a mantissa m, meaning m / 2^e.
constexpr Field kFactoryFields[] = {
    {2, 100},     // torque limit, percent
    {1, 15},      // noise filter, 1000 kHz
    {2, 2400},    // speed, 10 rev/sec
    {2, 10000},   // step filter, 1000 Hz
    {1, 0x87},    // damping, smoothing, inertia in g cm2, given as a ratio
    {2, 960},     // harmonic gain in use
    {2, 0xFFFC},  // harmonic phase in use, -4
    {2, 200},     // running current
    {2, 100},     // idle current
    {2, 1200},    // second speed, 5 rev/sec
    {2, 18000},   // largest acceleration, 3000 rev/s/s
    {2, 0},       // no stall detection, differential encoder
    {2, 4000},    // encoder counts/rev
    {2, 6240},    // lead angle speed in use, 26 rev/sec
    {2, 120},     // lead angle in use, degrees
    {2, 20},      // stall time, ms
    {2, 2400},    // speed at full analog input, 10 rev/sec
    {2, 0},       // analog offset
    {2, 600},     // acceleration, 100 rev/s/s
    {2, 600},     // deceleration
    {1, 1},       // analog input 0 to 10 V
    {1, 5},       // analog deadband, mV
    {2, 200},     // brake delay, ms
    {2, 200},     // brake engage time, ms
    {1, 7},       // control mode: pulses
    {1, 3},       // operating mode: pulses or velocity
    {1, 0},       // pulse and direction
    {2, 20000},   // steps/rev
    {1, '!'},     // line address
    {1, 3},       // enable input not used
    {1, 3},       // alarm reset input not used
    {1, 3},       // alarm output not used
    {1, 3},       // brake output not used
    {1, 3},       // motion output not used
    {1, 1},       // limit inputs
    {2, 8000},    // analog gain
    {2, 14418},   // analog filter, 500 Hz
    {2, 0},       // transmit delay
    {2, 1},       // protocol
    {2, 1},       // 9600 bits/s
    {2, 50},      // regen resistor, W
    {2, 40},      // regen resistor, ohm
    {2, 1250},    // regen time, 0.3125 s
    {2, 400},     // idle delay, ms
    {2, 12000},   // anti-resonance gain
    {2, 170},     // anti-resonance frequency, Hz, for a load like the rotor
    {2, 625},     // five tuning words
    {2, 30},
    {2, 5000},
    {2, 250},
    {2, 250},
    {2, 0},           // custom motor: harmonic gain
    {2, 0},           // harmonic phase
    {2, 200},         // current
    {1, 0},           // torque in oz in
    {1, 1},           // inertia in g cm2
    {4, 0x10760000},  // torque, 118
    {4, 0x0E4B0000},  // inertia, 300
    {2, 941},         // largest output, 94.1 percent
    {2, 6000},        // lead angle speed, 25 rev/sec
    {2, 120},         // lead angle, degrees
    {13, 0, "custom motor"},
    {1, 0},           // the catalogue motor is in use
    {2, 960},         // catalogue motor: harmonic gain
    {2, 0xFFFC},      // harmonic phase, -4
    {2, 300},         // current
    {1, 0},           // torque in oz in
    {1, 1},           // inertia in g cm2
    {4, 0x0F5D8000},  // torque, 187
    {4, 0x0E488000},  // inertia, 290
    {2, 840},         // largest output, 84 percent
    {2, 6240},        // lead angle speed, 26 rev/sec
    {2, 120},         // lead angle, degrees
    {13, 0, "KM23-2P-300"},
};

constexpr std::size_t TotalWidth() {
  std::size_t total = 0;
  for (const Field& field : kFactoryFields) total += field.width;
  return total;
}
static_assert(TotalWidth() == kDriveImageBytes - 2);

std::uint8_t ByteOf(const Field& field, std::size_t i) {
  if (field.text.empty()) return static_cast<std::uint8_t>(field.value >> (8 * (field.width - 1 - i)));
  return static_cast<std::uint8_t>(i < field.text.size() ? field.text[i] : ' ');
}

}  // namespace

DriveImage FactoryImage() {
  DriveImage image{};
  std::size_t position = 0;
  for (const Field& field : kFactoryFields)
    for (std::size_t i = 0; i < field.width; ++i) image[position++] = ByteOf(field, i);
  SealDriveImage(image);
  return image;
}

void SealDriveImage(DriveImage& image) {
  const int sum = DriveImageSum(image);
  image[image.size() - 2] = static_cast<std::uint8_t>(sum >> 8);
  image[image.size() - 1] = static_cast<std::uint8_t>(sum & 0xFF);
}

int DriveImageSum(std::span<const std::uint8_t> image) {
  int sum = 0;
  for (const std::uint8_t byte : image.first(image.size() - 2)) sum += byte;
  return sum & 0xFFFF;
}

bool DriveImageSumHolds(std::span<const std::uint8_t> image) {
  const std::size_t size = image.size();
  return DriveImageSum(image) == image[size - 2] * 256 + image[size - 1];
}

}  // namespace kavr6
