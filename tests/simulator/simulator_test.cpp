#include <gtest/gtest.h>

#include "platform/headless_desktop.h"
#include "simulator/simulated_comm.h"

namespace kavr6 {
namespace {

using namespace std::string_literals;
constexpr double kByte = SimulatedDrive::kByteTime;
const std::string kPowerUp = "\xFF\x34\x29";

std::string TextOf(const SimulatedDrive::Image& image) { return {image.begin(), image.end()}; }

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

TEST(Drive, AnswersEachCommandAtLineSpeed) {
  const std::tuple<std::string, std::string, double> cases[] = {
      // with the bytes on the line
      {"y\x8E", "006B", 6},
      {"u", TextOf(FactoryImage()), 162},
      {"CC", "4)4)", 5},             // the second answer waits until the first has left
      {"S0QT\r\xFFHCno", "4)", 10},  // among bytes that are no command or have no answer
  };
  for (const auto& [command, reply, bytes] : cases) {
    Bench bench;
    EXPECT_EQ(bench.Say(command, (bytes - 0.5) * kByte), reply.substr(0, reply.size() - 1)) << command;
    EXPECT_EQ(bench.Say("", kByte), reply.substr(reply.size() - 1)) << command;
  }
}

TEST(Drive, KeepsAnImageOverARestartAndAbandonsHalfAnImageOnlyAfterAPause) {
  Bench bench;
  SimulatedDrive::Image other;
  other.fill(0xF0);
  other[159] = 159 * 0xF0 / 256;
  other[160] = 159 * 0xF0 % 256;
  const std::string image = TextOf(other);
  EXPECT_EQ(bench.Say("d" + image.substr(0, 160), 161 * kByte + 0.55), "");
  EXPECT_EQ(bench.Say("C"), "4)");
  EXPECT_EQ(bench.Say("d" + image.substr(0, 100), 100 * kByte + 0.45), "");
  EXPECT_EQ(bench.Say(image.substr(100)), "\x06");
  bench.drive.Restart();
  EXPECT_EQ(bench.Say("u"), kPowerUp + image);
  EXPECT_EQ(bench.Say("i4071u"), TextOf(FactoryImage()));
}

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
