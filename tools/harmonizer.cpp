#include "tools/harmonizer.h"

#include <initializer_list>
#include <limits>
#include <utility>

#include "core/motion_codes.h"
#include "core/numbers.h"
#include "link/wire.h"
#include "platform/runtime_error.h"
#include "tools/power_up_capture.h"

namespace kavr6 {
namespace {

constexpr char kAnnouncement = static_cast<char>(MessageHeader::PowerUp);
constexpr double kEntryPause = 0.05;  // seconds
constexpr int kPowerUpPause = 100;    // milliseconds
constexpr double kReplyPause = 0.25;  // seconds
constexpr int kFirstSpeed = 100;

constexpr auto kWelcome =
    "This wizard will help you adjust the harmonic gain and phase so that the motor runs smoothly at low "
    "speeds.  Make sure the running current has been specified correctly in the motor dialog.  Be sure that "
    "the motor shaft is free to turn continuously, then press START.";

/// Keeps the bytes that come in from the receive path while it lives.
class Unheard {
 public:
  explicit Unheard(MSComm& comm) : comm_(comm), threshold_(comm.RThreshold()) { comm_.SetRThreshold(0); }
  Unheard(const Unheard&) = delete;
  Unheard& operator=(const Unheard&) = delete;
  ~Unheard() { comm_.SetRThreshold(threshold_); }

 private:
  MSComm& comm_;
  int threshold_;
};

/// The number of "HG=500" and a carriage return, wherever that stands in the reply.
std::optional<Long> NumberIn(std::string_view reply) {
  const std::size_t sign = reply.find('=');
  if (sign == std::string_view::npos) return std::nullopt;
  const std::string_view behind = reply.substr(sign + 1);
  const std::size_t end = behind.find(kReturn);
  if (end == std::string_view::npos) return std::nullopt;
  try {
    return ToLong(StrictNumber(behind.substr(0, end)));
  } catch (const RuntimeError&) {
    return std::nullopt;  // damaged on the way
  }
}

std::string SpeedText(int value) { return FormatNumber(value / 100.0, "0.00"); }

}  // namespace

struct Harmonizer::Step {
  const char* caption;
  SliderRange range;
  const char* instructions;
};

namespace {

constexpr Harmonizer::Step kSpeed{
    "Motor Speed",
    {.min = 0, .max = 500, .smallStep = 1, .largeStep = 25, .tickSpacing = 100},
    "Move the slider until you find the speed where the motor makes the most noise or vibration.  Usually "
    "this is around 1 rev/sec.  It helps to have to motor resting on a table top as that will amplify the "
    "sound.  Press NEXT when you find the loudest speed."};
constexpr Harmonizer::Step kGain{
    "Harmonic Gain",
    {.min = 0, .max = 3000, .smallStep = 10, .largeStep = 100, .tickSpacing = 100},
    "Find the best harmonic gain setting, then press NEXT."};
constexpr Harmonizer::Step kPhase{
    "Harmonic Phase",
    {.min = -128, .max = 128, .smallStep = 1, .largeStep = 10, .tickSpacing = 16},
    "Find the best phase setting, then press DONE."};

}  // namespace

Harmonizer::Harmonizer(const DriveLine& line, const HarmonizerParts& parts)
    : LiveTool(line, parts.over.Desk(), "Harmonizer"),
      ParamSlider(*this, "ParamSlider", kSpeed.range),
      parts_(parts) {
  SetCaption("Waveform Smoothing Wizard");
  SliderFrame.Hold({&ParamSlider, &lblParam, &RPSlabel});
  SliderFrame.SetCaption(kSpeed.caption);
  PowerUpPause.SetInterval(kPowerUpPause);
  Activate.Set([this] { Begin(); });
  Start.Clicked.Set([this] { StartClick(); });
  NextDone.Clicked.Set([this] { NextDoneClick(); });
  Cancel.Clicked.Set([this] { CancelClick(); });
  ParamSlider.Change.Set([this] { SliderChange(); });
  ParamSlider.Scrolled.Set([this] { SliderScroll(); });
  PowerUpPause.Tick.Set([this] { TakeUpAgain(); });
}

void Harmonizer::Load() { CenterOn(parts_.over, *this); }

void Harmonizer::Begin() {
  Instructions.SetCaption(kWelcome);
  Start.SetEnabled(false);
  NextDone.SetEnabled(false);
  NextDone.SetCaption("Next");
  lblParam.SetCaption("");
  for (Control* control : std::initializer_list<Control*>{&lblParam, &RPSlabel, &SliderFrame, &ParamSlider})
    control->SetVisible(false);
  SliderFrame.SetCaption(kSpeed.caption);
  StepSpeed = StepGain = StepPhase = false;
  SavedControlMode.reset();

  const int visit = ++visit_;
  Send("HR");
  TakeLine();
  Delay(line_.pump, kEntryPause);
  // A drive that has just started has its own pause first.
  line_.pump.PumpEventsUntil([&] { return visit != visit_ || !PowerUpPause.Enabled(); }, kForever);
  if (visit != visit_) return;
  Send("PR1");
  ReadHGHP();
  SaveCM();
  Start.SetEnabled(true);
  Start.Focus();
}

void Harmonizer::StartClick() {
  Start.SetEnabled(false);
  StepSpeed = true;
  for (Control* control : std::initializer_list<Control*>{&RPSlabel, &SliderFrame, &lblParam, &ParamSlider})
    control->SetVisible(true);
  // Like a move of the user's: the speed goes out here already when the slider stood elsewhere.
  ShowStep(kSpeed, kFirstSpeed);
  lblParam.SetCaption(SpeedText(ParamSlider.Value()));
  Change("CC" + parts_.txtDriveCurrent.Text());
  Change("CM10");
  Change("JS" + lblParam.Caption());
  Send("CJ");
  NextDone.SetEnabled(true);
}

void Harmonizer::NextDoneClick() {
  // While the slider takes on its next range it belongs to no step: what the drive has told is neither sent
  // back to it nor lost where the slider cannot show it.
  if (std::exchange(StepSpeed, false)) {
    ShowStep(kGain, HarmonicGainValue);
    lblParam.SetCaption(NumberText(HarmonicGainValue));
    StepGain = true;
  } else if (std::exchange(StepGain, false)) {
    ShowStep(kPhase, HarmonicPhaseValue);
    lblParam.SetCaption(NumberText(HarmonicPhaseValue));
    NextDone.SetCaption("Done");
    StepPhase = true;
  } else if (StepPhase) {
    Done();
  }
}

void Harmonizer::ShowStep(const Step& step, int value) {
  SliderFrame.SetCaption(step.caption);
  ParamSlider.SetRange(step.range, value);
  RPSlabel.SetVisible(StepSpeed);
  Instructions.SetCaption(step.instructions);
  ParamSlider.Focus();
}

void Harmonizer::Done() {
  StepPhase = false;
  GiveBack();
  parts_.SliderGain.SetValue(HarmonicGainValue);
  parts_.SliderPhase.SetValue(HarmonicPhaseValue);
  Desk().Ask({.text = "Don't forget to download the new settings to the drive to make them permanent."});
  // An alarm window that has opened and closed beside the box has brought the wizard to the front once more.
  LeaveLine();
  Hide();
}

void Harmonizer::CancelClick() {
  GiveBack();
  Hide();
}

bool Harmonizer::MayClose() {
  CancelClick();
  return false;  // it is hidden
}

void Harmonizer::GiveBack() {
  ++visit_;
  PowerUpPause.SetEnabled(false);
  PowerUpText.clear();  // the rest of an announcement goes elsewhere
  Send("SJ");
  RestoreCM();
  Send(kQuitText);
  LetGo();
}

void Harmonizer::SliderChange() {
  if (!StepSpeed && !StepGain && !StepPhase) return;
  SliderScroll();
  if (StepGain) HarmonicGainValue = ParamSlider.Value();
  if (StepPhase) HarmonicPhaseValue = ParamSlider.Value();
}

void Harmonizer::SliderScroll() {
  lblParam.SetCaption(StepSpeed ? SpeedText(ParamSlider.Value()) : NumberText(Long{ParamSlider.Value()}));
  const std::string letters = StepSpeed ? "CS" : StepGain ? "HG" : "HP";
  Change(letters + lblParam.Caption());
  if (!line_.comm.PortOpen()) AnswerDue();
}

void Harmonizer::ProcessChar(std::uint8_t byte) {
  PowerUpText += static_cast<char>(byte);
  while (PowerUpText.size() >= kMessageSize) {
    if (PowerUpText[0] != kAnnouncement) PowerUpText.erase(0, 1);
    if (PowerUpText.size() >= kMessageSize && PowerUpText[0] == kAnnouncement) AnswerPowerUp();
  }
}

void Harmonizer::AnswerPowerUp() {
  line_.comm.Output(kTakeUpText);
  TellRestart(line_.state.Drive, static_cast<std::uint8_t>(PowerUpText[1]),
              static_cast<std::uint8_t>(PowerUpText[2]));
  PowerUpText.erase(0, kMessageSize);
  Send("PR1");
  // A timer and no wait in here: of a flood of announcements each would wait inside the one before. The last
  // one's pause counts.
  PowerUpPause.SetEnabled(false);
  PowerUpPause.SetEnabled(true);
}

void Harmonizer::TakeUpAgain() {
  PowerUpPause.SetEnabled(false);
  Hear(line_.comm.Input());
  ReadHGHP();
}

void Harmonizer::ReadHGHP() {
  const Unheard unheard(line_.comm);
  HarmonicGainValue = ReadNumber("HG").value_or(HarmonicGainValue);
  HarmonicPhaseValue = ReadNumber("HP").value_or(HarmonicPhaseValue);
}

void Harmonizer::SaveCM() {
  const Unheard unheard(line_.comm);
  const Long mode = ReadNumber("CM").value_or(kControlPointToPoint);
  SavedControlMode = static_cast<Integer>(std::in_range<Integer>(mode) ? mode : kControlPointToPoint);
  Change("CM" + NumberText(kControlPointToPoint));
}

void Harmonizer::RestoreCM() {
  if (SavedControlMode) Change("CM" + NumberText(Long{*SavedControlMode}));
}

std::optional<Long> Harmonizer::ReadNumber(std::string_view letters) {
  Send(letters);
  AnswerDue();
  // The whole time, however early an answer comes: what else the drive says then does not reach the next
  // read.
  line_.comm.WaitBlocking(std::numeric_limits<int>::max(), kReplyPause);
  const Bytes reply = line_.comm.Input();
  Hear(reply);
  return NumberIn({reinterpret_cast<const char*>(reply.data()), reply.size()});
}

}  // namespace kavr6
