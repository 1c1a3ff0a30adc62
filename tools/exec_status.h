// The status monitor: a running drive at a glance.
#pragma once

#include <functional>
#include <limits>
#include <string>
#include <string_view>

#include "platform/chart.h"
#include "platform/control_array.h"
#include "platform/file_store.h"
#include "tools/live_tool.h"
#include "tools/power_up_capture.h"

namespace kavr6 {

/// Window "ExecStatus". While it is in front it asks the drive for everything again and again, one question
/// after the other, and shows what is answered; what is not answered stays as it was. The user switches
/// outputs and motor; when the window closes, the outputs get back the functions that they had.
class ExecStatus : public LiveTool {
 public:
  static constexpr int kLamps = 14;  ///< of the status word and of the alarm word
  static constexpr int kInputs = 16;
  static constexpr int kOutputs = 7;
  static constexpr double kChartSpan = 180.0;  ///< seconds

  ExecStatus(const DriveLine& line, Desktop& desktop, FileStore& files);
  ~ExecStatus() override { Desk().Cancel(asking_); }

  Frame Frame1{*this, "Frame1"};
  ControlArray<Lamp> AlarmLED{*this, "AlarmLED", kLamps};
  Frame FrameStatus{*this, "FrameStatus"};
  ControlArray<Lamp> StatusLED{*this, "StatusLED", kLamps};
  /// Names of the status bits, then of the alarms from the first row down.
  ControlArray<Label> lblStatusBit{*this, "lblStatusBit", 2 * kLamps};

  Frame FrameEncoder{*this, "FrameEncoder"};
  Label EncoderCount{*this, "EncoderCount"};
  Frame FrameSpeed{*this, "FrameSpeed"};
  Label MotorSpeed{*this, "MotorSpeed"};
  Frame FrameVolts{*this, "FrameVolts"};
  Label AnalogVolts{*this, "AnalogVolts"};

  Frame Frame2{*this, "Frame2"};
  ControlArray<Lamp> INlo{*this, "INlo", kInputs};
  ControlArray<Label> XLabel{*this, "XLabel", kInputs};
  Lamp SampleIn{*this, "SampleIn"};
  Label Label4{*this, "Label4", "= low (closed)"};
  Frame Frame3{*this, "Frame3"};
  ControlArray<Lamp> OUTlo{*this, "OUTlo", kOutputs};
  ControlArray<Label> OutLabel{*this, "OutLabel", 4};
  Label Y1{*this, "Y1", "Y1"};
  Label Y2{*this, "Y2", "Y2"};
  Label Y3{*this, "Y3", "Y3"};
  ControlArray<Button> HI{*this, "HI", kOutputs, "HI"};
  ControlArray<Button> LO{*this, "LO", kOutputs, "LO"};
  Lamp SampleOut{*this, "SampleOut"};
  Label Label20{*this, "Label20", "= low (closed)"};

  ImageButton Play{*this, "Play", "PlayGray", "PlayGray"};
  ImageButton Pause{*this, "Pause", "PauseGray", "PauseGray"};
  ImageButton OK{*this, "OK", "OKup", "OKdown"};
  Timer Timer1{*this, "Timer1"};

  /// A row for each round of questions.
  Chart StripChart{
      *this, "StripChart", {{"speed", "rev/s"}, {"analog input", "V"}, {"encoder", "counts"}}, kChartSpan};
  CheckBox HoldChart{*this, "HoldChart"};
  Button SaveChart{*this, "SaveChart", "Save as CSV..."};

 protected:
  void Load() override { OK.Focus(); }
  void ProcessChar(std::uint8_t byte) override;
  void GiveBack() override;
  bool MayClose() override;

 private:
  // The lights of inputs and outputs; the samples beside the legends show the low ones.
  static constexpr Lamp::State LEDblack = Lamp::State::Off;
  static constexpr Lamp::State LEDgreen = Lamp::State::Green;
  static constexpr Lamp::State LEDorange = Lamp::State::Orange;

  // exec_status.cpp
  void NameLamps();
  void HoldInFrames();
  void WireButtons();
  void Activated();
  int GetModelNum();
  void RecordOutSettings();
  void RestoreOutSettings();
  void Arrange();
  void ShowPlay(bool enabled, bool known);
  void DoPowerUp(const std::string& text);
  void SaveWhenIdle();
  void AskForFile();

  // exec_status_polls.cpp
  void Round();
  bool AwaitAnswer(const std::function<bool()>& come);
  void Poll(std::string_view command, std::string_view prefix,
            const std::function<void(std::string_view buffer)>& show);
  void ShowStatus();
  void ShowStatusExt();
  void ShowSpeed();
  void ShowVolts();
  void ShowEnable();
  void ShowEncoder();
  void MonitorStatus();
  void MonitorAlarms();

  /// What one round has brought for the chart.
  struct Measured {
    double speed = std::numeric_limits<double>::quiet_NaN();
    double volts = std::numeric_limits<double>::quiet_NaN();
    double encoder = std::numeric_limits<double>::quiet_NaN();
  };

  FileStore& files_;
  PowerUpCapture capture_;
  std::string ReplyBuffer;
  int ModelNum = 0;
  // The functions of the outputs as they stood when the window opened; empty: the drive has not told.
  std::string SavedMO, SavedAO, SavedBO;
  int turn_ = 0;  // grows with each activation and closing: a wait that finds another has been overtaken
  bool activating_ = false;
  bool inRound_ = false;
  bool saveAsked_ = false;
  Scheduler::TaskId asking_ = 0;
  Measured measured_;
};

}  // namespace kavr6
