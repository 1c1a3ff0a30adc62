// What is compared: the screen, a file or a drive.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>

#include "comparison/setting_table.h"
#include "image/parameter_image.h"
#include "motor/motor_row.h"

namespace kavr6 {

struct ComparedSide {
  enum class Kind { Screen, File, Drive };
  Kind kind = Kind::Screen;
  HeldSettings held;
  /// Of the standard motor, from which an image is made; nothing where there is none, and for a drive.
  std::optional<MotorRow> row;
  /// What a drive has given.
  std::optional<ParameterImage> image;
  /// False for what a file of its version has no place for; empty where that is nothing.
  std::function<bool(const SettingRow&)> inFile;
};

/// The settings as the program holds them, with the rows of both lists.
ComparedSide SideOfScreen(const Settings& settings, const std::optional<MotorRow>& row, int model, int port);
/// `base` counts for what the file has no place for. RuntimeError where it cannot be read to its end, or for
/// a row that a list does not have.
ComparedSide SideOfFile(const std::string& content, const Settings& base);
/// An image whose sum has been tested. RuntimeError where it cannot be read.
ComparedSide SideOfDrive(std::span<const Byte> image);

/// The two bytes from that place on, as one number.
inline Long WordAt(const ParameterImage& image, std::size_t place) {
  return image[place] * 256 + image[place + 1];
}
/// All that an image says, in the words of the one who writes images: the lead angles too, which a reader of
/// images takes for something else. `base` counts for what it does not hold.
HeldSettings HeldInImage(const ParameterImage& image, const Settings& base);
/// The image that a side makes, or has given; nothing for what cannot be sent.
std::optional<ParameterImage> ImageOf(const ComparedSide& side);

}  // namespace kavr6
