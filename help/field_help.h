// What stands beside every field: its meaning, unit and range.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/form.h"

namespace kavr6 {

struct FieldMeaning {
  std::string_view control;  ///< an array by its name alone
  std::string_view meaning;  ///< whole sentences
  std::string_view unit = {};
  std::string_view slider = {};  ///< the slider that goes with the field and is told the same
};

/// A window may have several rows; those of parts that windows share are told once.
struct WindowMeanings {
  std::string_view window;
  std::span<const FieldMeaning> fields;
};

/// In the windows that edit the settings, and in the others.
std::span<const WindowMeanings> DialogMeanings();
std::span<const WindowMeanings> ToolMeanings();

/// Meaning, and the range with its unit as the limits of number entry tell it; empty where the tables are
/// silent.
std::string FieldHelp(const Control& control);
/// Makes that the tool tip of every control of the form which the tables know.
void TellFields(const Form& form);

}  // namespace kavr6
