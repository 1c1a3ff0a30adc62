#include "link/comm_ports.h"
#include "link/drive_identity.h"
#include "tests/link/link_fixture.h"

namespace kavr6 {
namespace {

class DriveIdentityTest : public LinkTest {
 protected:
  DriveIdentity identity{screen, comm};
};

TEST_F(DriveIdentityTest, CheckDriveTakesWhatItsAnswersSay) {
  // Identity, letter; result, model, version shown, letter known, seconds.
  using Text = std::string_view;
  const std::tuple<Text, Text, Text, int, Text, Text, double> cases[] = {
      {"4)", "006B", "4)", 0, "1.52 k", "k", 0.02},
      {"\x02\x12", "0061", "", 1, "1.02 a", "a", 0.02},    // an unknown model
      {"4.x", "", "4.", 5, "1.52", "c", 0.51},             // no letter: the old one is kept
      {"4*x", "006", "4*", 1, "1.52 \x06", "\x06", 0.02},  // a byte too many counts for the letter
      {"4)", "FFE9", "4)", 0, "1.52 \xC3\xA9", "\xC3\xA9", 0.02}};
  for (const auto& [answer, letter, result, model, version, minorRev, seconds] : cases) {
    screen.ModelList.SetListIndex(1);
    screen.MinorRev = "c";
    screen.GlobalBuffer = "left over";
    comm.Reply("C", answer);
    comm.Reply("y\x8E", letter);
    const double start = desktop.Now();
    EXPECT_EQ(identity.CheckDrive(), result);
    EXPECT_NEAR(desktop.Now() - start, seconds, 1e-9);
    EXPECT_EQ(screen.ModelList.ListIndex(), model);
    EXPECT_EQ(screen.DriveVersion.Caption(), version);
    EXPECT_EQ(screen.MinorRev, minorRev);
    EXPECT_EQ(screen.GlobalBuffer, "");
  }
}

TEST_F(DriveIdentityTest, FirstLookKnowsEarlierFamiliesOnlyAndWaitsASecond) {
  for (int code = 1; code < 128; ++code) {
    comm.Reply("C", "4" + std::string(1, static_cast<char>(code)));
    const bool earlier = code == 9 || code == 18 || (code >= 30 && code <= 40) || code == 109 || code == 118;
    EXPECT_EQ(identity.DriveStillThere(), earlier) << code;
    EXPECT_EQ(screen.DriveModelCode.Get(), code);
  }
  comm.Reply("C", "");
  const double start = desktop.Now();
  EXPECT_FALSE(identity.DriveStillThere());
  EXPECT_NEAR(desktop.Now() - start, 1.0, 1e-9);
}

TEST_F(DriveIdentityTest, StatusWordIsSignedAndMinusOneWithoutAnswer) {
  const std::tuple<std::string_view, Long, double> cases[] = {
      {"7FFF", 32767, 0.01}, {"8000", -32768, 0.01}, {"ffff", -1, 0.01},    {"12zz", 0x12, 0.01},
      {"????", 0, 0.01},     {"004", -1, 1.0},       {"0041more", 65, 0.01}};
  for (const auto& [answer, status, seconds] : cases) {
    comm.Reply("y\x80", answer);
    const double start = desktop.Now();
    EXPECT_EQ(identity.GetServoStatus(), status) << answer;
    EXPECT_NEAR(desktop.Now() - start, seconds, 1e-9) << answer;
  }
  EXPECT_EQ(screen.GlobalBuffer, "") << "what stands behind an answer is dropped";
  comm.Unplug();
  EXPECT_EQ(identity.GetServoStatus(), 0);
}

class CommPortsTest : public testing::Test {
 protected:
  CommPortsTest() {
    screen.CommNumber = 1;
    ports.LoadCommList();
  }
  void TearDown() override { EXPECT_NO_THROW(desktop.CheckNothingLeft()); }
  void ExpectState(int startPort, int commNumber, bool open, const std::vector<int>& opened) {
    EXPECT_EQ(screen.StartPort, startPort);
    EXPECT_EQ(screen.CommNumber.Get(), commNumber);
    EXPECT_EQ(screen.CommList.ListIndex(), commNumber - 1);
    EXPECT_EQ(NoCommPort(comm), !open);
    EXPECT_EQ(comm.Opened(), opened);
  }

  HeadlessDesktop desktop;
  MainScreen screen{desktop};
  ScriptedComm comm{desktop};
  CommPorts ports{screen, comm};
};

TEST_F(CommPortsTest, StartBehindBusyPortsOpensTheFreeOneTwiceAndGreetsIt) {
  comm.Refuse(1, "Port in use");
  comm.Refuse(2, "Port in use");
  desktop.Expect({"Error on Comm1:  Port in use.  Will try Comm2."});
  desktop.Expect({"Error on Comm2:  Port in use.  Will try Comm3."});
  ports.StartComm();
  ExpectState(3, 3, true, {3, 3});
  EXPECT_EQ(comm.TakeWritten(), "0");
}

TEST_F(CommPortsTest, StartWithoutAnyPortEndsClosedOnRowOneWhichThenDoesNothing) {
  for (int port = 1; port <= 8; ++port) {
    comm.Refuse(port, "Port in use");
    desktop.Expect({port < 8 ? "Error on Comm" : "Could not find an open comm port."});
  }
  ports.StartComm();
  ExpectState(0, 1, false, {});
  comm.Accept(4);
  screen.CommList.Select(0);
  ExpectState(0, 1, false, {});
  screen.CommList.Select(3);
  ExpectState(0, 4, true, {4});
}

TEST_F(CommPortsTest, ChoosingABusyPortReturnsToTheOldOneAndFailsQuietlyWhenThatIsGoneToo) {
  ports.StartComm();
  ExpectState(1, 1, true, {1});
  EXPECT_EQ(comm.TakeWritten(), "");
  comm.Refuse(5, "Port in use");
  desktop.Expect({"COM port 5 is not available."});
  screen.CommList.Select(4);
  ExpectState(1, 1, true, {1, 1});

  comm.Refuse(1, "Port in use");
  desktop.Expect({"COM port 5"});
  screen.CommList.Select(4);
  ExpectState(1, 1, false, {1, 1});
}

}  // namespace
}  // namespace kavr6
