// What happens to a number that a person has typed: no message, a bad entry is quietly put right when the
// field is left.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/settings.h"
#include "platform/controls.h"

namespace kavr6 {

/// How the cleaned number is written back.
enum class EntryForm {
  Plain,
  Whole,         ///< nearest integer, half to even
  OneUnit,       ///< "0"
  Hundredths,    ///< "0.00"
  Thousandths,   ///< "0.000"
  MultipleOf4,   ///< as Whole, then rounded down to one
  NoiseDivider,  ///< MHz, the nearest value that a division of 15 MHz gives
};

struct EntryLimits {
  std::string_view dialog;
  std::string_view field;
  double min;
  double max;
  EntryForm form = EntryForm::Plain;
  int sliderFactor = 0;  ///< slider value of 1.0; 0: no slider follows the text
};

/// All fields that have limits.
std::span<const EntryLimits> AllLimits();
/// The limits of a field; null where it has none.
const EntryLimits* FindLimits(std::string_view dialog, std::string_view field);
/// The row of this field, in the unit that stands beside it; a field without one is a std::logic_error.
const EntryLimits& LimitsOf(const TextBox& box);

/// The number at the beginning of `text` (PrefixNumber) within `min` to `max`.
double ClampEntry(std::string_view text, double min, double max);
/// What becomes of `text` in the field of these limits.
std::string CleanEntry(std::string_view text, const EntryLimits& limits);

/// Cleans the box whenever it loses the focus, by its row of the table; `slider` then follows the text as
/// far as its range goes, see SliderFollows.
void LimitEntry(TextBox& box, Slider* slider = nullptr);
/// Moves the slider to text times factor. Where it cannot follow, the text stays what it was.
void SliderFollows(TextBox& box, Slider& slider, int factor);
/// Writes the slider's value over the factor of the box's row into the box; without a factor, the value.
void TextFollows(TextBox& box, const Slider& slider);
/// Moves the slider to the step nearest to `value`, half to even, within its range.
void MoveSlider(Slider& slider, double value);

/// What OK takes from a box: StrictNumber of its text, and that as an integer. The decimal sign of the system
/// is taken for a point; the cleaning above takes the point alone.
double EntryNumber(const TextBox& box);
Long EntryLong(const TextBox& box);

}  // namespace kavr6
