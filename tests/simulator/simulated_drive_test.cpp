#include "simulator/simulated_drive.h"

#include <gtest/gtest.h>

#include "tests/simulator/bench.h"

namespace kavr6 {
namespace {

using namespace std::string_literals;
constexpr double kByte = SimulatedDrive::kByteTime;

TEST(Drive, AnswersEachCommandAtLineSpeed) {
  const struct {
    std::string command;
    std::string reply;
    double bytesOnLine;  // until the last one has arrived
  } kCases[] = {
      {"C", "4)", 3},
      {"y\x8E", "006B", 6},
      {"y\x80", "0001", 6},
      {"a", std::string(16, '\0'), 17},
      {"u", TextOf(FactoryImage()), 162},
      // The second answer waits until the first has left.
      {"CC", "4)4)", 5},
      // Neither bytes that are no command nor commands without an answer get in the way.
      {"S0QT\r\xFFHCno", "4)", 10},
  };
  for (const auto& c : kCases) {
    Bench bench;
    bench.comm.Output(c.command);
    EXPECT_TRUE(bench.desktop.PumpEventsUntil(
        [&] { return bench.comm.InBufferCount() == static_cast<int>(c.reply.size()); }, 1.0))
        << c.command;
    EXPECT_NEAR(bench.desktop.Now(), c.bytesOnLine * kByte, 1e-9) << c.command;
    EXPECT_EQ(bench.Say(""), c.reply) << c.command;
  }
}

TEST(Drive, FactoryImageDescribesTheCatalogueMotor) {
  const auto image = FactoryImage();
  EXPECT_TRUE(DriveImageSumHolds(image));
  EXPECT_EQ(TextOf(image).substr(110, 13), "custom motor ");
  EXPECT_EQ(image[123], 0);
  EXPECT_EQ(TextOf(image).substr(146, 13), "KM23-2P-300  ");
  EXPECT_EQ(image[12] * 256 + image[13], 200);
}

SimulatedDrive::Image OtherImage() {
  SimulatedDrive::Image image;
  image.fill(0xF0);
  image[159] = 159 * 0xF0 / 256;
  image[160] = 159 * 0xF0 % 256;
  return image;
}

TEST(Drive, StoresAnImageWithAGoodSumAndKeepsItOverARestart) {
  Bench bench;
  EXPECT_EQ(bench.Say("d" + TextOf(OtherImage()), 162.5 * kByte), "");
  EXPECT_EQ(bench.Say("", 0.6 * kByte), "\x06");
  bench.drive.Restart();
  EXPECT_EQ(bench.Say("u"), "\xFF\x34\x29" + TextOf(OtherImage()));
  EXPECT_EQ(bench.Say("i4071u"), TextOf(FactoryImage()));
}

TEST(Drive, RefusesAnImageAndKeepsItsOwn) {
  Bench bench;
  auto damaged = OtherImage();
  damaged[80] ^= 1;
  EXPECT_EQ(bench.Say("d" + TextOf(damaged)), "\x15");
  bench.drive.SetRefusing(true);
  EXPECT_EQ(bench.Say("d" + TextOf(OtherImage())), "\x15");
  EXPECT_EQ(bench.drive.StoredImage(), FactoryImage());
}

TEST(Drive, AbandonsAHalfReceivedDownloadOnlyAfterAPause) {
  Bench bench;
  const std::string image = TextOf(OtherImage());
  EXPECT_EQ(bench.Say("d" + image.substr(0, 100), 100 * kByte + 0.45), "");
  EXPECT_EQ(bench.Say(image.substr(100)), "\x06");
  EXPECT_EQ(bench.Say("d" + image.substr(0, 160), 161 * kByte + 0.55), "");
  EXPECT_EQ(bench.Say("C"), "4)");
}

TEST(Drive, ForgetsWhatItWasDoingWhenItRestarts) {
  Bench bench;
  EXPECT_EQ(bench.Say("d" + std::string(50, '\0'), 51.5 * kByte), "");
  bench.drive.Restart();
  EXPECT_EQ(bench.Say(std::string(111, '\0') + "C"),
            "\xFF\x34\x29"
            "4)");
  bench.comm.Output("u");
  Delay(bench.desktop, 11.5 * kByte);
  bench.drive.Restart();
  EXPECT_EQ(bench.Say(""), TextOf(FactoryImage()).substr(0, 10) + "\xFF\x34\x29");
}

TEST(Drive, TellsAndRemembersAlarmsUntilTheyAreCleared) {
  Bench bench;
  bench.drive.RaiseAlarm(0x0002);
  bench.drive.RaiseAlarm(0x4080);
  // The message has no room for bit 14.
  EXPECT_EQ(bench.Say(""), "\xFC\x00\x02\xFC\x01\x00"s);
  const std::pair<std::string, std::string> kSteps[] = {
      {"y\x80", "0204"},
      {"n", ""},
      {"y\x80", "0204"},  // a motor with a fault cannot be enabled
      {"zy\x80", "0000"},
      {"ny\x80", "0001"},
      {"a", "\x40\x80\x00\x02"s + std::string(12, '\0')},
      {"oa", std::string(16, '\0')},
  };
  for (const auto& [command, reply] : kSteps) EXPECT_EQ(bench.Say(command), reply) << command;

  bench.drive.SetAlarmSticking(true);
  bench.drive.RaiseAlarm(0x0080);
  EXPECT_EQ(bench.Say("zzny\x80"),
            "\xFC\x01\x00"s
            "0204");
  bench.drive.SetAlarmSticking(false);
  EXPECT_EQ(bench.Say("zzny\x80"), "0001");
}

TEST(Drive, KeepsTheLastEightAlarms) {
  Bench bench;
  for (int word = 1; word <= 9; ++word) bench.drive.RaiseAlarm(word);
  bench.Say("");
  EXPECT_EQ(bench.Say("a"), "\0\x09\0\x08\0\x07\0\x06\0\x05\0\x04\0\x03\0\x02"s);
}

TEST(Drive, ReportsItsRevision) {
  Bench bench;
  bench.drive.SetIdentity(2, 46, 'A');
  bench.drive.ReportRevision();
  EXPECT_EQ(bench.Say("Cy\x8E"),
            "\xF1\x02"
            "A\x02.0041");
}

TEST(Drive, HearsNoSingleLetterCommandsInTextMode) {
  Bench bench;
  EXPECT_EQ(bench.Say("HR\rC\rCQ\ry\x8E\r"), "");
  EXPECT_EQ(bench.Say("C", 0.6), "");  // an unfinished line does not spoil the next one
  EXPECT_EQ(bench.Say("QT\r\nC"), "4)");
  EXPECT_EQ(bench.Say("HRHM\rC"), "4)");
  bench.Say("HR");
  bench.drive.Restart();
  EXPECT_EQ(bench.Say("C"),
            "\xFF\x34\x29"
            "4)");
}

TEST(Drive, TakesTwoZerosForATextSessionOnlyAsTheAnswerToItsAnnouncement) {
  const std::pair<std::string, std::string> kCases[] = {
      {"00", ""}, {"0", "4)"}, {"QT00", "4)"}, {"S00", "4)"}};
  for (const auto& [answer, reply] : kCases) {
    Bench bench;
    EXPECT_EQ(bench.Say("00C"), "4)");
    bench.drive.Restart();
    bench.Say("");
    EXPECT_EQ(bench.Say(answer + "C"), reply) << answer;
  }
  Bench bench;
  bench.drive.Restart();
  bench.Say("0");
  EXPECT_EQ(bench.Say("0C"), "4)") << "two port changes are no answer";
}

TEST(Drive, MisbehavesAsTold) {
  Bench bench;
  bench.drive.SetReplyDelay(0.7);
  EXPECT_EQ(bench.Say("C", 0.7 + 2.5 * kByte), "4");
  EXPECT_EQ(bench.Say(""), ")");
  bench.drive.SetReplyDelay(0.0);

  bench.comm.Output("Cd" + TextOf(OtherImage()));
  Delay(bench.desktop, 2.5 * kByte);
  bench.drive.SetSilent(true);
  EXPECT_EQ(bench.Say(""), "4");
  bench.drive.RaiseAlarm(1);
  bench.drive.SetSilent(false);
  EXPECT_EQ(bench.Say("u"), TextOf(OtherImage())) << "silent, yet listening";

  bench.drive.SetByteTime(0.0);
  EXPECT_EQ(bench.Say("u", 1.1 * kByte).size(), 161U);
}

}  // namespace
}  // namespace kavr6
