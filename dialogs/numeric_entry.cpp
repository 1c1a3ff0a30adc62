#include "dialogs/numeric_entry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

#include "core/numbers.h"
#include "platform/form.h"

namespace kavr6 {
namespace {

using enum EntryForm;

// That some limits of like fields differ is how the drives want it.
constexpr std::array kLimits{
    EntryLimits{"MotorDialog", "txtDriveCurrent", 0.5, 6, Hundredths, 100},
    EntryLimits{"MotorDialog", "txtIdlePercent", 0, 100, Whole, 1},
    EntryLimits{"MotorDialog", "IdleDelayTime", 0, 10, Hundredths, 100},
    EntryLimits{"MotorDialog", "txtInertiaRatio", 0, 20, Plain, 10},
    EntryLimits{"EditMotor", "Gain", 0, 10000, Plain, 1},
    EntryLimits{"EditMotor", "Phase", -128, 128, Plain, 1},
    EntryLimits{"EditMotor", "txtDeg", 45, 360},
    EntryLimits{"EditMotor", "txtRPS", 5, 100},
    EntryLimits{"EditMotor", "txtR", 0.1, 320},
    EntryLimits{"EditMotor", "txtL", 0.1, 320},
    EntryLimits{"EditMotor", "txtMaxVolts", 10, 100},
    EntryLimits{"PulseDirDialog", "SPR", 200, 51200, MultipleOf4},
    EntryLimits{"PulseDirDialog", "txtNoiseFilter", 0.1, 15, NoiseDivider},
    EntryLimits{"PulseDirDialog", "txtStepFilterFreq", 1, 10000},
    EntryLimits{"VTLdialog", "SPR", 200, 51200, MultipleOf4},
    EntryLimits{"VTLdialog", "txtNoiseFilter", 0.1, 15, NoiseDivider},
    EntryLimits{"VTLdialog", "txtStepFilterFreq", 1, 2500},
    EntryLimits{"VTLdialog", "txtTxDelay", 0, 32000},
    EntryLimits{"VelocityDialog", "txtSpeed", 0.0125, 100},
    EntryLimits{"VelocityDialog", "txtSpeed2", 0.0125, 100},
    EntryLimits{"VelocityDialog", "txtAccel", 0.5, 5460},
    EntryLimits{"VelocityDialog", "txtDecel", 0.5, 5460},
    EntryLimits{"VelocityDialog", "CmdScale", -100, 100, Thousandths},
    EntryLimits{"AdvancedSettings", "txtAnalogDeadband", 1, 255},
    EntryLimits{"AdvancedSettings", "txtCmdOffset", -10000, 10000},
    EntryLimits{"AdvancedSettings", "txtAnalogFilter", 1, 16000},
    EntryLimits{"IOdialog", "txtBrakeDelay", 0, 32000},
    EntryLimits{"IOdialog", "txtBrakeEngage", 0, 32000},
    EntryLimits{"IOdialog", "txtMaxAccel", 1, 5000, OneUnit},
    EntryLimits{"EncoderDialog", "txtEncCounts", 100, 65535},
    EntryLimits{"EncoderDialog", "txtMaxTorque", 10, 100},
    EntryLimits{"EncoderDialog", "txtAttempts", 1, 32000},
    EntryLimits{"RegenDialog", "RegenOhms", 5, 1000},
    EntryLimits{"RegenDialog", "RegenWatts", 50, 1000},
    EntryLimits{"RegenDialog", "RegenSecs", 0.01, 8},
};

constexpr double kNoiseFilterBase = 15000;  // kHz

double NearestNoiseFilter(double megahertz) {
  const double divider = std::floor(kNoiseFilterBase / (megahertz * 1000) + 0.5);
  return std::floor(kNoiseFilterBase / divider + 0.5) / 1000;
}

std::string EntryText(double value, EntryForm form) {
  switch (form) {
    case Plain:
      return NumberText(value);
    case Whole:
      return NumberText(ToLong(value));
    case OneUnit:
      return FormatNumber(value, "0");
    case Hundredths:
      return FormatNumber(value, "0.00");
    case Thousandths:
      return FormatNumber(value, "0.000");
    case MultipleOf4:
      return NumberText(ToLong(value) / 4 * 4);
    case NoiseDivider:
      return NumberText(NearestNoiseFilter(value));
  }
  return {};
}

}  // namespace

std::span<const EntryLimits> AllLimits() { return kLimits; }

const EntryLimits* FindLimits(std::string_view dialog, std::string_view field) {
  const auto* const row = std::ranges::find_if(
      kLimits, [&](const EntryLimits& limits) { return limits.dialog == dialog && limits.field == field; });
  return row == kLimits.end() ? nullptr : row;
}

const EntryLimits& LimitsOf(const TextBox& box) {
  const EntryLimits* const limits = FindLimits(box.Owner().Name(), box.Name());
  if (limits == nullptr) throw std::logic_error(box.Owner().Name() + "." + box.Name() + " has no limits");
  return *limits;
}

double ClampEntry(std::string_view text, double min, double max) {
  return std::clamp(PrefixNumber(text), min, max);
}

std::string CleanEntry(std::string_view text, const EntryLimits& limits) {
  return EntryText(ClampEntry(text, limits.min, limits.max), limits.form);
}

void LimitEntry(TextBox& box, Slider* slider) {
  box.LostFocus.Set([&box, slider, &limits = LimitsOf(box)] {
    box.SetText(CleanEntry(box.Text(), limits));
    if (slider != nullptr) SliderFollows(box, *slider, limits.sliderFactor);
  });
}

void MoveSlider(Slider& slider, double value) {
  slider.SetValue(ToLong(std::clamp<double>(value, slider.Range().min, slider.Range().max)));
}

void SliderFollows(TextBox& box, Slider& slider, int factor) {
  const std::string text = box.Text();
  const double wanted = PrefixNumber(text) * factor;
  MoveSlider(slider, wanted);
  if (wanted < slider.Range().min || wanted > slider.Range().max) box.SetText(text);
}

void TextFollows(TextBox& box, const Slider& slider) {
  const EntryLimits& limits = LimitsOf(box);
  box.SetText(EntryText(static_cast<double>(slider.Value()) / std::max(limits.sliderFactor, 1), limits.form));
}

double EntryNumber(const TextBox& box) {
  std::string text = box.Text();
  const std::string sign = box.Owner().Desk().DecimalSign();
  if (const auto place = text.find(sign); place != std::string::npos) text.replace(place, sign.size(), ".");
  return StrictNumber(text);
}
Long EntryLong(const TextBox& box) { return ToLong(EntryNumber(box)); }

}  // namespace kavr6
