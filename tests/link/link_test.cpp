// The receive path and the identity of a drive where a table of bytes says more than a scenario.
#include <gtest/gtest.h>

#include "core/drive_models.h"
#include "link/drive_identity.h"
#include "link/receive_path.h"
#include "platform/form.h"
#include "platform/headless/headless_desktop.h"
#include "platform/headless/scripted_comm.h"

namespace kavr6 {
namespace {

struct LinkScene {
  LinkScene() {
    state.ModelIndex = 1;
    comm.SetPortOpen(true);
    comm.SetRThreshold(1);
    path.ServoError152 = [this](int word) { alarms.push_back(word); };
  }

  HeadlessDesktop desktop;
  ScriptedComm comm{desktop};
  DriveState state;
  DriveLine line{state, comm, desktop, desktop};
  ReceivePath path{line};
  std::vector<int> alarms;
};

class LinkTest : public testing::Test, protected LinkScene {};

struct Stream {
  Bytes bytes;
  std::string buffer;
  std::vector<int> alarms;
  int waiting;
  std::string version;
};

void ExpectOutcome(const Stream& c, std::initializer_list<std::size_t> cuts) {
  LinkScene scene;
  auto from = c.bytes.begin();
  double time = 0.0;
  for (const std::size_t cut : cuts) {
    const auto to = c.bytes.begin() + static_cast<std::ptrdiff_t>(cut);
    scene.comm.Feed(Bytes(from, to), time += 0.001);
    from = to;
  }
  Delay(scene.desktop, 1.0);
  EXPECT_EQ(scene.state.GlobalBuffer, c.buffer);
  EXPECT_EQ(scene.alarms, c.alarms);
  EXPECT_EQ(scene.path.Ring().RingCount(), c.waiting);
  EXPECT_EQ(scene.state.DriveVersion.Get(), c.version);
}

TEST(ReceivePathStreams, GiveTheSameWhereverTheyAreCutInThree) {
  const Stream streams[] = {
      {{0x41, 0xFC}, "A", {}, 1, ""},  // in one read the text waits too, see below
      {{0xFC, 0x00, 0x01, 0xFC, 0x02, 0x00}, "", {1, 256}, 0, ""},
      {{0xFC, 0x01, 0xFF, 0x2A, 0x29}, "", {}, 0, "1.42"},  // a header as third byte costs two
      {{0xFF, 0xFC, 0x01, 0x02}, "", {130}, 0, ""},         // as second byte one
      {{0x7F, 0x80, 0x01, 0x02}, "\x7F", {}, 0, ""},        // the highest text byte, the lowest header
      {{0xF1, 0x34, 0x6B, 0xF4, 1, 2, 'A'}, "A", {}, 0, "1.52 k"}};
  for (const Stream& c : streams) {
    for (std::size_t second = 1; second <= c.bytes.size(); ++second) {
      for (std::size_t first = 1; first <= second; ++first) {
        SCOPED_TRACE(testing::PrintToString(std::tuple(c.bytes, first, second)));
        if (c.waiting == 0 || first == 1) ExpectOutcome(c, {first, second, c.bytes.size()});
      }
    }
  }
}

TEST(ReceivePathStreams, InOneReadAreHeldByAHeaderAndLoseWhatStandsBehindABadOne) {
  const Stream streams[] = {{{0x41, 0xFC}, "", {}, 2, ""},
                            {{0xA0, 0x01, 0x02, 0x41}, "", {}, 0, ""},
                            {{0x41, 0xFE, 1, 2, 0xFC, 1, 2}, "A", {}, 0, ""},
                            {Bytes(31, 0x41), std::string(31, 'A'), {}, 0, ""},
                            {Bytes(40, 0x41), "AAAAAAAA", {}, 0, ""}};
  for (const Stream& c : streams) ExpectOutcome(c, {c.bytes.size()});
  // The ring begins again in the middle of a read.
  const std::string text = "The quick brown fox jumps over the lazy dog.";
  for (std::size_t cut = 14; cut < 31; ++cut)
    ExpectOutcome({TextBytes(text), text, {}, 0, ""}, {cut, text.size()});
}

using ReceivePathTest = LinkTest;

TEST_F(ReceivePathTest, PortThatIsClosedCannotBeClosedOnceMore) {
  int told = 0;
  comm.StateChanged.Set([&told] { ++told; });
  comm.SetPortOpen(false);
  comm.SetPortOpen(false);
  EXPECT_EQ(told, 1);
}

TEST_F(ReceivePathTest, TransferOrToolThatBeginsDuringAPauseKeepsItsBytes) {
  for (const bool tool : {false, true}) {
    comm.SetRThreshold(1);
    comm.Feed(Bytes{0xFF, 52, 41});
    desktop.CallAfter(0.05, [&] {
      state.LiveToolActive = tool;
      comm.SetRThreshold(tool ? 1 : 0);
      comm.Feed("late");
    });
    Delay(desktop, 0.5);
    EXPECT_EQ(state.GlobalBuffer, "");
    EXPECT_EQ(tool ? path.Ring().RingCount() : static_cast<int>(comm.Input().size()), 4);
  }
}

class LiveToolTest : public LinkTest {
 protected:
  LiveToolTest() {
    path.AddLiveTool("VTLterm", [this](std::uint8_t c) {
      typed += static_cast<char>(c);
      if (c == 'a') desktop.Post([this] { typed += '|'; }), comm.Feed("\xFC\x01\x02");
    });
    path.FrontWindow = [this] { return desktop.ActiveFormName(); };
    front.Show();
    tool.Show();
    state.LiveToolActive = true;
  }
  void Arrives(std::string_view text) {
    comm.Feed(text);
    Delay(desktop, 0.0);
  }
  Form front{desktop, "MainForm"};
  Form tool{desktop, "VTLterm"};
  std::string typed;
};

TEST_F(LiveToolTest, InFrontGetsEveryByteInOrderAcrossNestedArrivals) {
  Arrives("xayz");
  EXPECT_EQ(typed, "xa|yz\xFC\x01\x02") << "events run after each byte";
  EXPECT_TRUE(alarms.empty());
}

TEST_F(LiveToolTest, RestOfAPieceInWhichItEndsIsForTheMainScreen) {
  path.AddLiveTool("VTLterm", [this](std::uint8_t c) {
    typed += static_cast<char>(c);
    desktop.Post([this] { state.LiveToolActive = false; });  // a click that has been waiting
  });
  Arrives("xOK\xFC\x01\x02");
  EXPECT_EQ(typed, "x");
  EXPECT_EQ(state.GlobalBuffer, "OK");
  EXPECT_EQ(alarms, std::vector{130});
}

TEST_F(LiveToolTest, InFrontLosesNothingOfABurstThatTheRingCannotHold) {
  std::string burst;
  for (int i = 0; i < 400; ++i) burst += static_cast<char>('b' + i % 23);
  comm.Feed(burst);
  desktop.Post([&] { comm.Feed("a" + burst); });
  Delay(desktop, 0.0);
  EXPECT_EQ(typed, burst + "a|" + burst + "\xFC\x01\x02");
}

TEST_F(LiveToolTest, BehindAnotherWindowItsBytesWaitAndABurstIsLost) {
  desktop.BroughtToFront(front);
  Arrives(std::string(32, 'x') + "12345678");
  EXPECT_EQ(path.Ring().RingCount(), 8);
  desktop.BroughtToFront(tool);
  Delay(desktop, 0.0);
  EXPECT_EQ(typed, "") << "delivered at the next arrival only";
  Arrives("9");
  EXPECT_EQ(typed, "123456789");
}

using DriveIdentityTest = LinkTest;

TEST_F(DriveIdentityTest, FirstLookKnowsEarlierFamiliesOnly) {
  DriveIdentity identity(line);
  for (int code = 1; code < 128; ++code) {
    comm.Reply("C", "4" + std::string(1, static_cast<char>(code)));
    const bool earlier = code == 9 || code == 18 || (code >= 30 && code <= 40) || code == 109 || code == 118;
    EXPECT_EQ(identity.DriveStillThere(), earlier) << code;
    EXPECT_EQ(state.DriveModelCode, code);
  }
}

TEST_F(DriveIdentityTest, StatusWordIsSignedAndMinusOneWithoutAnswer) {
  DriveIdentity identity(line);
  const std::tuple<std::string_view, Long, double> cases[] = {
      {"7FFF", 32767, 0.01}, {"8000", -32768, 0.01}, {"ffff", -1, 0.01},    {"12zz", 0x12, 0.01},
      {"????", 0, 0.01},     {"004", -1, 1.0},       {"0041more", 65, 0.01}};
  for (const auto& [answer, status, seconds] : cases) {
    comm.Reply("y\x80", answer);
    const double start = desktop.Now();
    EXPECT_EQ(identity.GetServoStatus(), status) << answer;
    EXPECT_NEAR(desktop.Now() - start, seconds, 1e-9) << answer;
  }
  EXPECT_EQ(state.GlobalBuffer, "") << "what stands behind an answer is dropped";
}

}  // namespace
}  // namespace kavr6
