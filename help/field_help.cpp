#include "help/field_help.h"

#include <algorithm>

#include "core/numbers.h"
#include "dialogs/numeric_entry.h"

namespace kavr6 {
namespace {

std::string_view ArrayOf(std::string_view name) { return name.substr(0, name.find('(')); }

/// What happens to a number within the range that is not to be had as it stands.
std::string_view RoundingWords(EntryForm form) {
  switch (form) {
    case EntryForm::Whole:
    case EntryForm::OneUnit:
      return ", whole numbers";
    case EntryForm::MultipleOf4:
      return ", rounded down to a multiple of 4";
    case EntryForm::NoiseDivider:
      return ", rounded to what a division of 15 MHz gives";
    case EntryForm::Plain:
    case EntryForm::Hundredths:
    case EntryForm::Thousandths:
      break;
  }
  return {};
}

std::string RangeSentence(std::string_view window, const FieldMeaning& field) {
  const std::string unit = field.unit.empty() ? "" : " " + std::string(field.unit);
  const EntryLimits* const limits = FindLimits(window, field.control);
  if (limits == nullptr) return unit.empty() ? "" : "  Unit:" + unit + ".";
  return "  Range: " + NumberText(limits->min) + " to " + NumberText(limits->max) + unit +
         std::string(RoundingWords(limits->form)) + ".";
}

std::string HelpOf(std::string_view window, std::string_view control) {
  for (const auto& table : {DialogMeanings(), ToolMeanings()}) {
    for (const WindowMeanings& row : table) {
      if (row.window != window) continue;
      const auto field = std::ranges::find_if(row.fields, [control](const FieldMeaning& f) {
        return f.control == control || (!f.slider.empty() && f.slider == control);
      });
      if (field != row.fields.end()) return std::string(field->meaning) + RangeSentence(window, *field);
    }
  }
  return {};
}

}  // namespace

std::string FieldHelp(const Control& control) {
  return HelpOf(control.Owner().Name(), ArrayOf(control.Name()));
}

void TellFields(const Form& form) {
  for (Control* control : form.Controls())
    if (const std::string words = FieldHelp(*control); !words.empty()) control->SetToolTip(words);
}

}  // namespace kavr6
