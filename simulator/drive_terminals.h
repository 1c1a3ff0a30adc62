// The terminals of a drive: what is wired to its inputs and what its outputs are told by hand.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace kavr6 {

/// Inputs are IN1 to IN8, then X0 to X7; outputs are OUT1 to OUT4, then Y1 to Y3. High is open, which all of
/// them are at first.
class DriveTerminals {
 public:
  static constexpr std::size_t kInputs = 16;
  static constexpr std::size_t kOutputs = 7;
  static constexpr std::size_t kX = 8;  ///< of X0
  static constexpr std::size_t kY = 4;  ///< of Y1

  /// "IN5" or "5", "X3"; nothing for other names.
  static std::optional<std::size_t> InputOf(std::string_view name);
  /// "OUT2" or "2", "Y1".
  static std::optional<std::size_t> OutputOf(std::string_view name);

  bool High(std::size_t input) const { return inputs_.at(input); }
  /// Whether one of two inputs that mean the same is closed.
  bool Closed(std::size_t one, std::size_t other) const { return !High(one) || !High(other); }
  void SetInput(std::size_t input, bool high) { inputs_.at(input) = high; }

  /// What an output shows that no function of the drive drives.
  bool ByHand(std::size_t output) const { return outputs_.at(output); }
  void SetByHand(std::size_t output, bool high) { outputs_.at(output) = high; }
  /// As after power-up; what is wired to the inputs stays.
  void ReleaseOutputs() { outputs_.fill(true); }

  // What the drive measures, at a moment of its clock. It wanders a little, always in the same way.
  double Volts(double time) const;
  /// Nothing: it wanders again.
  void SetVolts(std::optional<double> volts) { volts_ = volts; }
  static double Celsius(double time);
  static double SupplyVolts(double time);

 private:
  template <std::size_t N>
  static constexpr std::array<bool, N> AllHigh() {
    std::array<bool, N> all{};
    all.fill(true);
    return all;
  }
  std::array<bool, kInputs> inputs_ = AllHigh<kInputs>();
  std::array<bool, kOutputs> outputs_ = AllHigh<kOutputs>();
  std::optional<double> volts_;
};

/// What a command waits for at an input: "L" or "H" level, "F" falling or "R" rising edge.
struct InputCondition {
  std::size_t input = 0;
  char kind = 'L';

  /// As in "3L" or "X4R"; nothing for any other text.
  static std::optional<InputCondition> Of(std::string_view text);
  /// `changed`: the input has just changed to its level.
  bool Holds(const DriveTerminals& terminals, bool changed) const;
};

}  // namespace kavr6
