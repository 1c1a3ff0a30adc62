// The round of questions: each with its own way to read the answer.
#include <cmath>
#include <string>
#include <utility>

#include "core/alarms.h"
#include "core/numbers.h"
#include "core/status_word.h"
#include "tools/exec_status.h"
#include "tools/status_replies.h"

namespace kavr6 {
namespace {

constexpr double kAnswerLimit = 0.5;  // seconds
constexpr std::size_t kWordDigits = 4;
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

/// Drives that tell of the first inputs and outputs as well.
bool HasFirstTerminals(int model) {
  return model == 43 || model == 46 || model == 73 || model == 74 || model == 76 || model == 77;
}

}  // namespace

void ExecStatus::Round() {
  if (activating_) return;
  inRound_ = true;
  measured_ = {};
  const double begin = Desk().Now();
  if (HasFirstTerminals(ModelNum)) ShowStatus();
  ShowStatusExt();
  ShowSpeed();
  ShowVolts();
  ShowEnable();
  ShowEncoder();
  MonitorStatus();
  MonitorAlarms();
  ReplyBuffer.clear();
  inRound_ = false;
  const auto& [speed, volts, encoder] = measured_;
  const bool any = std::isfinite(speed) || std::isfinite(volts) || std::isfinite(encoder);
  if (any && line_.state.LiveToolActive) StripChart.Add(begin, {speed, volts, encoder});
  SaveWhenIdle();
}

// Ends early when the window is closed: the answer would go elsewhere, and the next opening must not find
// this round still waiting.
bool ExecStatus::AwaitAnswer(const std::function<bool()>& come) {
  const int turn = turn_;
  const double asked = Desk().Now();
  const int openings = line_.comm.Openings();
  const auto over = [&] { return turn != turn_ || come(); };
  const bool answered = line_.pump.PumpEventsUntil(over, kAnswerLimit);
  if (turn != turn_) return false;
  if (!answered && openings == line_.comm.Openings()) AnswerDue(asked);
  return answered;
}

// After a click on Save the rest of a round is left out; a silent drive would make the user wait for it.
void ExecStatus::Poll(std::string_view command, std::string_view prefix,
                      const std::function<void(std::string_view)>& show) {
  if (!line_.state.LiveToolActive || saveAsked_) return;
  Send(command);
  if (AwaitAnswer([this, prefix] { return HoldsAnswer(ReplyBuffer, prefix); })) show(ReplyBuffer);
  ReplyBuffer.clear();
}

void ExecStatus::ShowStatus() {
  Poll("IS", "IS=", [this](std::string_view buffer) {
    for (std::size_t i = 0; i < 8; ++i)
      INlo[static_cast<int>(7 - i)].SetLight(IsHigh(Behind(buffer, "IS="), i) ? LEDblack : LEDgreen);
  });
  Poll("IO", "IO=", [this](std::string_view buffer) {
    for (std::size_t i = 0; i < 4; ++i)
      OUTlo[static_cast<int>(3 - i)].SetLight(IsHigh(Behind(buffer, "IO="), 4 + i) ? LEDblack : LEDorange);
  });
}

void ExecStatus::ShowStatusExt() {
  Poll("ISX", "IS=", [this](std::string_view buffer) {
    // X0 comes first, and then from X7 down to X1.
    for (std::size_t i = 0; i < 8; ++i)
      INlo[i == 0 ? 8 : static_cast<int>(16 - i)].SetLight(IsHigh(Behind(buffer, "IS="), i) ? LEDblack
                                                                                            : LEDgreen);
  });
  Poll("IOY", "IO=", [this](std::string_view buffer) {
    for (std::size_t i = 0; i < 3; ++i)
      OUTlo[static_cast<int>(6 - i)].SetLight(IsHigh(Behind(buffer, "IO="), 5 + i) ? LEDblack : LEDorange);
  });
}

void ExecStatus::ShowSpeed() {
  Poll("IV1", "IV=", [this](std::string_view buffer) {
    const double rpm = PrefixNumber(FieldBehind(buffer, "IV="));
    MotorSpeed.SetCaption(ShownSpeed(rpm));
    measured_.speed = rpm / kSecondsPerMinute;
  });
}

void ExecStatus::ShowVolts() {
  Poll("IA", "IA=", [this](std::string_view buffer) {
    const auto text = LineBehind(buffer, "IA=");
    if (!text) return;
    measured_.volts = PrefixNumber(*text);
    AnalogVolts.SetCaption(ShownVolts(measured_.volts));
  });
}

void ExecStatus::ShowEnable() {
  Poll("SC", "SC=", [this](std::string_view buffer) {
    const auto text = LineBehind(buffer, "SC=");
    if (text) ShowPlay((HexNumber(*text) & kStatusEnabled) != 0, true);
  });
}

void ExecStatus::ShowEncoder() {
  Poll("IE", "IE=", [this](std::string_view buffer) {
    measured_.encoder = PrefixNumber(FieldBehind(buffer, "IE="));
    EncoderCount.SetCaption(NumberText(measured_.encoder));
  });
}

void ExecStatus::MonitorStatus() {
  Poll("SC", "SC=", [this](std::string_view buffer) {
    const unsigned word = HexNumber(Behind(buffer, "SC=").substr(0, kWordDigits));
    for (int bit = 0; bit < kLamps; ++bit)
      StatusLED[bit].SetLight((word >> bit & 1U) != 0 ? kStatusBits[static_cast<std::size_t>(bit)].lit
                                                      : Lamp::State::Off);
  });
}

void ExecStatus::MonitorAlarms() {
  Poll("AL", "AL=", [this](std::string_view buffer) {
    const std::string_view digits = Behind(buffer, "AL=").substr(0, kWordDigits);
    const unsigned word = HexNumber(digits);
    // What has been damaged on the way neither raises an alarm nor ends one.
    if (digits.size() == kWordDigits && digits.find_first_not_of(kHexDigits) == std::string_view::npos)
      line_.state.Drive.Alarm(static_cast<int>(word));
    for (int bit = 0; bit < kLamps; ++bit)
      AlarmLED[bit].SetLight((word >> bit & 1U) != 0 ? kAlarms[static_cast<std::size_t>(bit)].lit
                                                     : Lamp::State::Off);
  });
}

}  // namespace kavr6
