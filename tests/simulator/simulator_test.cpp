#include <gtest/gtest.h>

#include "platform/headless/headless_desktop.h"
#include "simulator/simulated_comm.h"

namespace kavr6 {
namespace {

using namespace std::string_literals;
const std::string kPowerUp = "\xFF\x34\x29";

/// One tool's port with one drive behind it, in virtual time.
struct Bench {
  HeadlessDesktop desktop;
  SimulatedDrive drive{desktop};
  SimulatedComm comm{desktop};

  Bench() {
    comm.Connect(1, &drive);
    comm.SetPortOpen(true);
  }
  /// What has arrived `seconds` after these bytes were written.
  std::string Say(std::string_view bytes, double seconds = 1.0) {
    comm.Output(bytes);
    Delay(desktop, seconds);
    const Bytes received = comm.Input();
    return {received.begin(), received.end()};
  }
};

TEST(Drive, TellsAndRemembersAlarmsUntilTheyAreCleared) {
  Bench bench;
  bench.drive.RaiseAlarm(0x4080);
  EXPECT_EQ(bench.Say(""), "\xFC\x01\x00"s) << "the message has no room for bit 14";
  const std::pair<std::string, std::string> kSteps[] = {
      {"y\x80", "0204"},
      {"ny\x80", "0204"},  // nobody enables a motor with a fault
      {"zny\x80", "0001"},
      {"a", "\x40\x80"s + std::string(14, '\0')},
      {"oa", std::string(16, '\0')}};
  for (const auto& [command, reply] : kSteps) EXPECT_EQ(bench.Say(command), reply) << command;
  bench.drive.SetAlarmSticking(true);
  for (int word = 1; word <= 9; ++word) bench.drive.RaiseAlarm(word);
  bench.Say("");
  EXPECT_EQ(bench.Say("zzny\x80"), "0204");
  EXPECT_EQ(bench.Say("a"), "\0\x09\0\x08\0\x07\0\x06\0\x05\0\x04\0\x03\0\x02"s);
}

TEST(Drive, IsDisabledByHeatRegenVoltagesCurrentsAndEncoderAndByNoOtherAlarm) {
  Bench bench;
  std::string words;
  for (int bit = 0; bit < 16; ++bit) {
    bench.drive.RaiseAlarm(1 << bit);
    bench.Say("");
    words += bench.Say("y\x80") + " ";
    bench.Say("zn");
  }
  EXPECT_EQ(words, "0201 0201 0201 0204 0204 0204 0204 0204 0204 0204 0201 0201 0201 0201 0201 0201 ");
}

TEST(Drive, HearsNoSingleLetterCommandsInTextMode) {
  Bench bench;
  EXPECT_EQ(bench.Say("HR\rC\rCQ\ry\x8E\r"), "");
  EXPECT_EQ(bench.Say("C", 0.6), "");  // an unfinished line does not spoil the next one
  EXPECT_EQ(bench.Say("QT\r\nC"), "4)");
  EXPECT_EQ(bench.Say("HRHM\rC00C"), "4)4)") << "two zeros mean something after the announcement only";
  bench.drive.Restart();
  EXPECT_EQ(bench.Say("00C"), kPowerUp);
}

}  // namespace
}  // namespace kavr6
