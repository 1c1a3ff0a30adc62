// All settings under the names by which people know them: the one table that comparisons walk.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/settings_fields.h"

namespace kavr6 {

/// All values of a screen, a file or a drive.
struct HeldSettings {
  Settings settings = {};
  Settings standard = {};  ///< its motor block alone: the motor of the catalogue
  Integer model = -1;      ///< rows of the lists of the main screen
  Integer port = -1;
  bool velocityOptions = true;  ///< false: of a drive whose mode does not hold them
};

/// Whether a value travels in the image. What a file holds, its own table of lines tells.
enum class Stored {
  InImage,
  NotInImage,
  WithVelocity,  ///< where the drive is in velocity mode
  WithRatio,     ///< where the load inertia is given so
  WithoutRatio,
};

struct SettingRow {
  std::string_view section;
  std::string_view name;
  std::variant<SettingsField, Integer HeldSettings::*> member;
  std::string_view unit = {};
  Stored stored = Stored::InImage;
  std::function<std::string(Long code)> words = {};         ///< of a code
  std::array<std::string_view, 2> answers = {"no", "yes"};  ///< of a flag: false, true
  std::string (*unitOf)(const MotorRecord& motor) = nullptr;
  bool ofStandardMotor = false;
};

/// Section by section.
const std::vector<SettingRow>& SettingTable();

/// Exactly the same value in both.
bool SameValue(const SettingRow& row, const HeldSettings& left, const HeldSettings& right);
/// How many digits of a number, at most, and whether a text stands in quotes: with All, two values that
/// differ never read the same.
enum class Digits { Few, Usual, All };
/// The value for people, with its unit.
std::string TextOf(const SettingRow& row, const HeldSettings& held, Digits digits);
/// Whether the image of a drive holds the value.
bool InImage(const SettingRow& row, const HeldSettings& held);

}  // namespace kavr6
