// In which settings two sides differ.
#pragma once

#include <string>
#include <vector>

#include "comparison/compared_side.h"

namespace kavr6 {

enum class Likeness {
  Differs,
  Same,
  SameAsStored,  ///< it reads otherwise, and becomes the same where it is stored
  NotStored,     ///< one side has no place for it
};

/// One setting of both sides, for people. What a side has no place for reads kNoValue.
struct ComparedSetting {
  Likeness likeness = Likeness::Same;
  std::string section = {};
  std::string name = {};
  std::string left = {};
  std::string right = {};
};
inline constexpr const char* kNoValue = "\u2014";

struct Comparison {
  /// Those that differ first, else in the order of the sections.
  std::vector<ComparedSetting> settings = {};
  int differing = 0;
  /// "drive", "file", or empty: to whose measure the settings were brought before they were compared.
  std::string store = {};
  /// A side beside a drive holds what cannot be sent to one. Its settings have been compared as they stand.
  bool unsendable = false;
};

/// Compares by what would be stored: where one side is a drive, by what the settings of the other become in
/// an image and back; where one is a file, by what the screen's become in a file. So images that are equal
/// have no differing setting; and a byte that differs shows in some setting, or in a row of its own.
Comparison Compare(const ComparedSide& left, const ComparedSide& right);

/// "differs", "same, as stored in the drive"...
std::string LikenessWords(const ComparedSetting& setting, const std::string& store);

}  // namespace kavr6
