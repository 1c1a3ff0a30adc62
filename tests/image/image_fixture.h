// Settings with their start values, a standard motor and what an image needs beside them.
#pragma once

#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "image/parameter_image.h"
#include "motor/motor_table.h"
#include "tests/support/catalogue.h"
#include "tests/support/error_of.h"

namespace kavr6 {

using S = Settings;

/// A number or flag of the settings, and its value as a number.
using Field = std::variant<Long S::*, Integer S::*, bool S::*, float S::*, double S::*>;
inline double Get(const Settings& settings, const Field& field) {
  return std::visit([&](auto member) { return static_cast<double>(settings.*member); }, field);
}
inline void Set(Settings& settings, const Field& field, double value) {
  std::visit(
      [&](auto member) { settings.*member = static_cast<std::decay_t<decltype(settings.*member)>>(value); },
      field);
}
using Changes = std::vector<std::pair<Field, double>>;

class ImageTest : public testing::Test {
 protected:
  ImageTest() {
    InitVars(settings);
    table.MoveFirst();
  }
  ParameterImage Written() {
    ParameterImage image{};
    DownloadString(image, settings, MotorTable(table).Row());
    StoreChecksum(image);
    return image;
  }
  /// The start values with some changes.
  void Start(const Changes& changes) {
    InitVars(settings);
    for (const auto& [field, value] : changes) Set(settings, field, value);
  }
  static std::vector<int> Part(const ParameterImage& image, std::size_t position, std::size_t width) {
    return {image.begin() + position, image.begin() + position + width};
  }

  MemoryTable table = CatalogueTable();
  Settings settings;
};

}  // namespace kavr6
