// What the drive says unasked, and what it answers to the short questions.
#include "tests/support/scenario.h"

namespace kavr6 {
namespace {

using namespace std::string_literals;

struct DriveScenario : Scenario {
  DriveScenario() {
    program.receive.ServoError152 = [this](int word) {
      recorder->Note("ServoError152 " + std::to_string(word));
    };
  }
  void Says(const std::string& what, const std::string& bytes, const std::string& answers = {}) {
    Do(what, [&] { drive.SendRaw(bytes); });
    Answer(answers, 0.1);
    Wait(0.3);
  }
};

TEST_F(DriveScenario, EachMessageDoesWhatItsHeaderSays) {
  StartUnseen();
  Says("alarm", "\xFC\x01\x02");
  Do("alarms are turned off", [&] { state.AlarmPopupOff = true; });
  Says("alarm while alarms are off", "\xFC\x01\x02");
  Says("revision 1.52 k", "\xF1\x34\x6B");
  Says("no fault", "\xF3\0\0"s);
  Says("a fault", "\xF3\x02\0"s);
  comm.SetLatency(0.02);  // each message now comes with what stands behind it
  Says("four that are ignored, then text", "\xF4\1\2\xF7\1\2\xF8\1\2\xF9\1\2text");
  Says("Zu chip wants a reflash", "\xEF\0\0"s, "O");
  Says("Zu chip wants another DSP firmware", "\xEF\1\0"s, "O");
  Says("Zu chip wants a reflash, for another reason", "\xEF\2\0"s, "O");
  Do("alarms are turned on", [&] { state.AlarmPopupOff = false; });
  Later(0.05, "while it stands open: text, an alarm, a revision",
        [&] { drive.SendRaw("A\xFC\1\2\xF1\x35l"); });
  Says("DSP wants a reflash", "\xF0\0\0"s, "O");
  Says("a bad header and what came with it", "\xA0\1\2text");
}

TEST_F(DriveScenario, PowerUpOfEachModel) {
  StartUnseen();
  Select(main.ModelList, 5);
  for (int model = 41; model <= 47; ++model) {
    drive.SetIdentity(model, model, 'k');
    Do("power-up of " + std::to_string(model), [&] {
      comm.SetRThreshold(3);
      drive.Restart();
      Delay(desktop, 0.2);
    });
  }
}

TEST_F(DriveScenario, StatusWordIsAsked) {
  StartUnseen();
  const auto ask = [&](const std::string& what) {
    Do("status word of " + what,
       [&] { recorder->Note("it is " + std::to_string(program.identity.GetServoStatus())); });
  };
  ask("a healthy drive");
  drive.RaiseAlarm(0x0081);
  Wait(0.1);
  ask("a drive with an alarm");
  drive.SetSilent(true);
  ask("a silent drive");
  comm.Unplug();
  ask("no drive");
}

}  // namespace
}  // namespace kavr6
