#include "apps/tour/tour.h"

namespace kavr6 {

void Tour::WatchDrive() {
  stage_.Step(
      "Status monitor: an input closes, outputs are forced, the motor is disabled, the drive falls silent");
  ExecStatus& monitor = program_.StatusMonitor;
  desktop_.CallAfter(1.0, [this] { stage_.Click(stage_.Window("ExecStatus"), "OK"); });
  stage_.Command(Main(), "MenuIOStatus");
  stage_.Check(!monitor.Visible() && !monitor.EncoderCount.Caption().empty(), "it opens, and closes by OK");
  // What is done from inside a modal window's loop would stand in the way of its rounds.
  monitor.Show();
  QWidget& window = stage_.Window("ExecStatus");
  const auto shows = [this](const char* what, const std::function<bool()>& done) {
    stage_.WaitFor(done, 5.0, what);
    stage_.Note(std::string("   ") + what);
  };
  stage_.Check(!monitor.INlo[0].Visible() && monitor.INlo[8].Visible(), "this drive has the X inputs alone");
  drive_.Order("input X3 low");
  stage_.Click(window, "LO_5");
  stage_.Click(window, "Pause");
  drive_.Order("alarm 2010");
  shows("input X3 is low", [&] { return monitor.INlo[11].Light() == Lamp::State::Green; });
  shows("output Y2 is low", [&] { return monitor.OUTlo[5].Light() == Lamp::State::Orange; });
  shows("the alarm is lit", [&] { return monitor.AlarmLED[4].Light() == Lamp::State::Red; });
  shows("the motor is off", [&] { return monitor.Pause.Picture() == "PauseRed"; });
  stage_.Pause(3.0);
  stage_.Picture(window, "status-monitor");
  drive_.Order("silent on");
  shows("its silence is told", [&] { return !monitor.Silence.Caption().empty(); });
  stage_.Picture(window, "status-monitor-silent");
  drive_.Order("silent off");
  stage_.AnswerNextFileDialog(stage_.Folder() / "chart");
  stage_.Click(window, "SaveChart");
  shows("the chart is saved", [&] { return std::filesystem::exists(stage_.Folder() / "chart.csv"); });
  shows("the drive is heard again", [&] { return monitor.Silence.Caption().empty(); });
  drive_.Order("input X3 high");
  stage_.Click(window, "Play");
  stage_.Click(window, "OK");
  stage_.Check(!monitor.Visible() && !program_.state.LiveToolActive, "OK has closed it");
  stage_.Pause(0.2);  // until the drive has acknowledged
  program_.settings.Speed = 99.0;
  stage_.Click(Main(), "Upload");
  stage_.Check(program_.settings.Speed != 99.0, "the drive listens to the main screen again");
}

}  // namespace kavr6
