// Random settings.
#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "config_file/cnf_layout.h"

namespace kavr6 {

/// Values that the digits of a file hold.
struct Dice {
  std::mt19937 random{25};
  /// Not the library's distribution: each library has its own, and a test is to see the same values
  /// everywhere.
  int Roll(int least, int most) {
    const auto sides = static_cast<std::uint32_t>(most - least) + 1;
    std::uint64_t product = 0;
    do product = std::uint64_t{random()} * sides;
    while (static_cast<std::uint32_t>(product) < (0U - sides) % sides);
    return least + static_cast<int>(product >> 32);
  }
  std::string Digits(int count, int exponent) {
    std::string text = Roll(0, 1) != 0 ? "-0." : "0.";
    while (count-- > 0) text += static_cast<char>('0' + Roll(0, 9));
    return text + "E" + std::to_string(Roll(-exponent, exponent));
  }
  void Throw(double& value) { value = std::stod(Digits(15, 300)); }
  void Throw(float& value) { value = std::stof(Digits(7, 30)); }
  void Throw(Long& value) { value = static_cast<Long>(random()); }
  void Throw(Integer& value) { value = static_cast<Integer>(random()); }
  void Throw(bool& value) { value = Roll(0, 1) != 0; }
  void Throw(std::string& value) {
    static const std::string kParts[] = {",",     " ",      "\"",     "#",          "\t",
                                         "Motor", "\u00FC", "\u20AC", "\U0001F600", {'\0'}};
    value.clear();
    for (int n = Roll(0, 9) == 0 ? 400 : Roll(0, 9); n > 0; --n) value += kParts[Roll(0, 9)];
  }
  /// Calls `work` with each field that files keep.
  template <class Work>
  static void EachField(const Work& work) {
    for (const CnfBlock& block : CnfLayout())
      if (block.of == CnfBlock::Of::Settings)
        for (const CnfLine& line : block.lines)
          for (const SettingsField& field : line.fields) std::visit(work, field);
  }
  Settings Record() {
    Settings record;
    EachField([&](auto member) { Throw(record.*member); });
    return record;
  }
};

}  // namespace kavr6
