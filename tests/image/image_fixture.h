// Settings with their start values, a standard motor and what an image needs beside them.
#pragma once

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "core/settings_fields.h"
#include "image/parameter_image.h"
#include "motor/motor_table.h"
#include "motor/small_catalogue.h"
#include "tests/support/error_of.h"

namespace kavr6 {

using Row = std::vector<std::string>;

/// The rows of the table in a file beside the tests.
inline std::vector<Row> RowsOf(const std::string& file) {
  std::vector<Row> rows;
  std::ifstream in(KAVR6_SOURCE "/tests/image/" + file);
  for (std::string line; std::getline(in, line);) {
    if (!line.starts_with("| ")) continue;
    Row cells;
    for (std::size_t at = 2; at < line.size(); at = line.find('|', at) + 2)
      cells.push_back(line.substr(at, line.find(" |", at) - at));
    rows.push_back(cells);
  }
  if (!rows.empty()) rows.erase(rows.begin());  // the heading
  return rows;
}

inline const SettingsField& FieldOf(std::string_view name) {
  for (const NamedField& field : SettingsFields())
    if (field.name == name) return field.member;
  throw std::invalid_argument(std::string(name));
}
/// The number or flag as a number.
inline double Get(const Settings& settings, const SettingsField& field) {
  const auto number = [&](auto member) -> double {
    if constexpr (std::is_arithmetic_v<std::decay_t<decltype(settings.*member)>>)
      return static_cast<double>(settings.*member);
    throw std::invalid_argument("a text");
  };
  return std::visit(number, field);
}
inline void Set(Settings& settings, const SettingsField& field, double value) {
  const auto assign = [&](auto member) {
    using Value = std::decay_t<decltype(settings.*member)>;
    if constexpr (std::is_arithmetic_v<Value>) settings.*member = static_cast<Value>(value);
  };
  std::visit(assign, field);
}

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
  /// The start values with some changes, such as "OpMode=4 LimitMode=2".
  void Start(const std::string& changes) {
    InitVars(settings);
    std::istringstream in(changes);
    for (std::string name, value; std::getline(in >> std::ws, name, '=') && in >> value;)
      Set(settings, FieldOf(name), std::stod(value));
  }
  static std::vector<int> Part(const ParameterImage& image, std::size_t position, std::size_t width) {
    return {image.begin() + position, image.begin() + position + width};
  }

  MemoryTable table = CatalogueTable();
  Settings settings;
};

}  // namespace kavr6
