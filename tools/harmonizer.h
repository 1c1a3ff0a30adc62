// The waveform smoothing wizard.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/settings.h"
#include "tools/live_tool.h"

namespace kavr6 {

/// What the wizard works with besides the line; all of it outlives the wizard.
struct HarmonizerParts {
  const Form& over;  ///< the wizard opens over its middle
  Slider& SliderGain;
  Slider& SliderPhase;
  const TextBox& txtDriveCurrent;
};

/// Window "Harmonizer", shown modally. While the motor jogs slowly the user finds its loudest speed, then the
/// harmonic gain and phase at which it runs quietest, all with one slider; Done hands both to the sliders of
/// the parts. Every way out stops the motor, puts the drive back into its control mode and gives the line
/// back.
class Harmonizer : public LiveTool {
 public:
  /// What the user sees of one use of the slider.
  struct Step;

  Harmonizer(const DriveLine& line, const HarmonizerParts& parts);

  Label Instructions{*this, "Instructions"};
  Frame SliderFrame{*this, "SliderFrame"};
  /// In hundredths of a revolution per second, then in the drive's units of gain and phase.
  Slider ParamSlider;
  Label lblParam{*this, "lblParam", "0"};  ///< its text is what goes to the drive
  Label RPSlabel{*this, "RPSlabel", "rev/sec"};
  Button Start{*this, "Start", "Start", Button::Role::Default};
  Button NextDone{*this, "NextDone", "Next"};
  Button Cancel{*this, "Cancel", "Cancel", Button::Role::Cancel};
  /// Runs while a drive that has started anew is given time.
  Timer PowerUpPause{*this, "PowerUpPause"};

 protected:
  void Load() override;
  /// The frame's close is Cancel, or the motor would jog on.
  bool MayClose() override;
  void ProcessChar(std::uint8_t byte) override;
  void GiveBack() override;

 private:
  void Begin();
  void StartClick();
  void NextDoneClick();
  void CancelClick();
  void Done();
  void ShowStep(const Step& step, int value);
  void SliderChange();
  void SliderScroll();
  void AnswerPowerUp();
  void TakeUpAgain();

  void ReadHGHP();
  void SaveCM();
  void RestoreCM();
  std::optional<Long> ReadNumber(std::string_view letters);

  HarmonizerParts parts_;
  std::string PowerUpText;
  // At most one of them; none before Start and after Done.
  bool StepSpeed = false;
  bool StepGain = false;
  bool StepPhase = false;
  Long HarmonicGainValue = 0;
  Long HarmonicPhaseValue = 0;
  std::optional<Integer> SavedControlMode;  // none before the drive has been switched over
  int visit_ = 0;                           // grows whenever the wizard takes or gives back the line
};

}  // namespace kavr6
