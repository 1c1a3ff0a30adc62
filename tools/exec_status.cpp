#include "tools/exec_status.h"

#include <array>
#include <utility>

#include "core/alarms.h"
#include "core/io_modes.h"
#include "core/numbers.h"
#include "core/status_word.h"
#include "link/wire.h"
#include "platform/runtime_error.h"
#include "tools/chart_csv.h"

namespace kavr6 {
namespace {

constexpr int kPeriod = 160;          // milliseconds
constexpr double kBeforeModel = 0.1;  // seconds
constexpr int kModelOffset = 48;      // the drive tells its model code as one character, this much below it

struct OutputWords {
  std::string_view function;  ///< the command that sets what the output does on its own, if it does
  std::string_view name;
};
constexpr std::array<OutputWords, ExecStatus::kOutputs> kOutputWords{
    {{"", "1"}, {"", "2"}, {"", "3"}, {"", "4"}, {"BO", "Y1"}, {"MO", "Y2"}, {"AO", "Y3"}}};

/// Inputs and outputs that only the larger drives have come first.
constexpr int kLargeInputs = 8;
constexpr int kLargeOutputs = 4;
bool IsSmallDrive(int model) { return model == 41 || model == 42; }

}  // namespace

ExecStatus::ExecStatus(const DriveLine& line, Desktop& desktop, FileStore& files)
    : LiveTool(line, desktop, "ExecStatus"), files_(files) {
  SetCaption("Drive Status Monitor");
  NameLamps();
  HoldInFrames();
  SampleIn.SetLight(LEDgreen);
  SampleOut.SetLight(LEDorange);
  Timer1.SetInterval(kPeriod);
  Timer1.Tick.Set([this] { Round(); });
  Activate.Set([this] { Activated(); });
  capture_.DoPowerUp = [this](const std::string& text) { DoPowerUp(text); };
  WireButtons();
}

void ExecStatus::NameLamps() {
  for (int bit = 0; bit < kLamps; ++bit) {
    const auto at = static_cast<std::size_t>(bit);
    lblStatusBit[bit].SetCaption(std::string(kStatusBits[at].name));
    lblStatusBit[kLamps + bit].SetCaption(std::string(kAlarms[kMonitoredAlarms[at]].monitored));
  }
  for (int i = 0; i < kInputs; ++i)
    XLabel[i].SetCaption(std::string(kInputNames[static_cast<std::size_t>(i)]));
  for (int i = 0; i < OutLabel.Count(); ++i) OutLabel[i].SetCaption("OUT" + std::to_string(i + 1));
}

void ExecStatus::HoldInFrames() {
  const auto hold = [](Frame& frame, auto& array) {
    for (Control& control : array) frame.Hold({&control});
  };
  hold(Frame1, AlarmLED);
  hold(FrameStatus, StatusLED);
  for (int i = 0; i < lblStatusBit.Count(); ++i) (i < kLamps ? FrameStatus : Frame1).Hold({&lblStatusBit[i]});
  FrameEncoder.Hold({&EncoderCount});
  FrameSpeed.Hold({&MotorSpeed});
  FrameVolts.Hold({&AnalogVolts});
  hold(Frame2, INlo);
  hold(Frame2, XLabel);
  Frame2.Hold({&SampleIn, &Label4});
  hold(Frame3, OUTlo);
  hold(Frame3, OutLabel);
  hold(Frame3, HI);
  hold(Frame3, LO);
  Frame3.Hold({&Y1, &Y2, &Y3, &SampleOut, &Label20});
}

void ExecStatus::WireButtons() {
  for (int i = 0; i < kOutputs; ++i) {
    const auto force = [this, &words = kOutputWords[static_cast<std::size_t>(i)]](std::string_view level) {
      if (!words.function.empty()) Change(std::string(words.function) + NumberText(kNotUsed));
      Change(std::string(level).append(words.name));
    };
    HI[i].Clicked.Set([force] { force("IH"); });
    LO[i].Clicked.Set([force] { force("IL"); });
  }
  Play.Clicked.Set([this] { Send("ME"); });
  Pause.Clicked.Set([this] { Send("MD"); });
  OK.Clicked.Set([this] {
    GiveBack();
    Hide();
  });
  HoldChart.Clicked.Set([this] { StripChart.SetHeld(HoldChart.Value()); });
  SaveChart.Clicked.Set([this] {
    saveAsked_ = true;
    SaveWhenIdle();
  });
}

// The window may be closed, or come to the front once more, in each wait.
void ExecStatus::Activated() {
  const int turn = ++turn_;
  activating_ = true;
  Send("HR");
  TakeLine();
  Send("IFD");
  const int model = GetModelNum();
  if (turn != turn_) return;
  ModelNum = model;
  RecordOutSettings();
  if (turn != turn_) return;
  Arrange();
  ShowPlay(false, false);
  activating_ = false;
  Timer1.SetEnabled(true);
  SaveWhenIdle();
}

int ExecStatus::GetModelNum() {
  const int turn = turn_;
  const auto overtaken = [this, turn] { return turn != turn_; };
  line_.pump.PumpEventsUntil(overtaken, kBeforeModel);
  // Answers of before, had behind another window, are no model.
  if (!overtaken() && DeliverWaiting) DeliverWaiting();
  if (overtaken()) return 0;
  ReplyBuffer.clear();
  Send("MN");
  if (AwaitAnswer([this] { return !ReplyBuffer.empty(); }))
    return static_cast<unsigned char>(ReplyBuffer.front()) - kModelOffset;
  ReplyBuffer.clear();
  return 0;
}

void ExecStatus::RecordOutSettings() {
  const std::pair<std::string_view, std::string*> settings[] = {
      {"MO", &SavedMO}, {"AO", &SavedAO}, {"BO", &SavedBO}};
  for (const auto& [command, saved] : settings) {
    const int turn = turn_;
    ReplyBuffer.clear();
    Send(command);
    // The one that closes the answer before may come only now; with nothing ahead of it it closes none.
    AwaitAnswer([this] { return ReplyBuffer.find(kReturn, 1) != std::string::npos; });
    if (turn != turn_) return;
    const std::string prefix = std::string(command) + '=';
    const std::size_t at = ReplyBuffer.find(prefix);
    saved->clear();
    if (at != std::string::npos) *saved = ReplyBuffer.substr(at + prefix.size(), 1);
    ReplyBuffer.clear();
  }
}

void ExecStatus::RestoreOutSettings() {
  const std::pair<const char*, std::string*> settings[] = {
      {"MO", &SavedMO}, {"BO", &SavedBO}, {"AO", &SavedAO}};
  for (const auto& [command, saved] : settings) {
    if (!saved->empty()) Send(command + *saved);
    // It belongs to this drive and this opening.
    saved->clear();
  }
}

void ExecStatus::Arrange() {
  const bool large = !IsSmallDrive(ModelNum);
  for (int i = 0; i < kLargeInputs; ++i) {
    INlo[i].SetVisible(large);
    XLabel[i].SetVisible(large);
  }
  for (int i = 0; i < kLargeOutputs; ++i) {
    for (Control* control : std::initializer_list<Control*>{&OUTlo[i], &OutLabel[i], &HI[i], &LO[i]})
      control->SetVisible(large);
  }
}

void ExecStatus::ShowPlay(bool enabled, bool known) {
  const std::string play = enabled ? "PlayGreen" : "PlayGray";
  const std::string pause = known && !enabled ? "PauseRed" : "PauseGray";
  Play.SetPictures(play, play);
  Pause.SetPictures(pause, pause);
}

void ExecStatus::ProcessChar(std::uint8_t byte) {
  if (capture_.Take(byte)) return;
  const char c = static_cast<char>(byte);
  if ((c >= ' ' && c <= '~') || c == kReturn || c == '\n') ReplyBuffer += c;
}

void ExecStatus::DoPowerUp(const std::string& text) {
  AnswerPowerUp(line_, static_cast<std::uint8_t>(text.at(1)), static_cast<std::uint8_t>(text.at(2)));
}

bool ExecStatus::MayClose() {
  GiveBack();
  return true;
}

void ExecStatus::GiveBack() {
  ++turn_;
  activating_ = saveAsked_ = false;
  Timer1.SetEnabled(false);
  RestoreOutSettings();
  Send(kQuitText);
  LetGo();
  ReplyBuffer.clear();
  capture_.Forget();
  HoldChart.SetValue(false);
  StripChart.Clear();
}

// Not in the middle of a round: it would stand still until the user has chosen.
void ExecStatus::SaveWhenIdle() {
  if (!saveAsked_ || activating_ || inRound_) return;
  saveAsked_ = false;
  asking_ = Desk().Post([this] {
    if (Visible()) AskForFile();
  });
}

void ExecStatus::AskForFile() {
  const std::string table = CsvOf(StripChart);
  const std::string name = Desk().ChooseFile({.purpose = FileDialog::Purpose::Save,
                                              .filter = "Comma-separated values|*.csv",
                                              .defaultExtension = "csv",
                                              .folder = {}});
  if (name.empty()) return;
  try {
    files_.Replace(name, table);
  } catch (const RuntimeError& error) {
    Desk().Ask({.text = std::string("The chart could not be saved: ") + error.what() + ".",
                .icon = BoxIcon::Exclamation});
  }
}

}  // namespace kavr6
