#include "link/receive_path.h"

#include "tests/link/link_fixture.h"

namespace kavr6 {
namespace {

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
  EXPECT_EQ(scene.screen.GlobalBuffer, c.buffer);
  EXPECT_EQ(scene.alarms, c.alarms);
  EXPECT_EQ(scene.path.Ring().RingCount(), c.waiting);
  EXPECT_EQ(scene.screen.DriveVersion.Caption(), c.version);
}

TEST(ReceivePathStreams, GiveTheSameWhereverTheyAreCutInThree) {
  const Stream streams[] = {
      {{0x41, 0xFC}, "A", {}, 1, ""},  // in one read the text waits too, see below
      {{0xFC, 0x00, 0x01, 0xFC, 0x02, 0x00}, "", {1, 256}, 0, ""},
      {{0xFC, 0x01, 0xFF, 0x2A, 0x29}, "", {}, 0, "1.42"},  // a header as third byte costs two
      {{0xFF, 0xFC, 0x01, 0x02}, "", {130}, 0, ""},         // as second byte one
      {{0x7F, 0x80, 0x01, 0x02}, "\x7F", {}, 0, ""},        // the highest text byte, the lowest header
      {{0xF1, 0x34, 0x6B}, "", {}, 0, "1.52 k"},
      {{0xF4, 1, 2, 0xF9, 1, 2, 'A'}, "A", {}, 0, ""},
  };
  for (const Stream& c : streams) {
    for (std::size_t second = 1; second <= c.bytes.size(); ++second) {
      for (std::size_t first = 1; first <= second; ++first) {
        SCOPED_TRACE(testing::PrintToString(c.bytes) + " cut at " + std::to_string(first) + ", " +
                     std::to_string(second));
        if (c.waiting == 0 || first == 1) ExpectOutcome(c, {first, second, c.bytes.size()});
      }
    }
  }
}

TEST(ReceivePathStreams, InOneReadAreHeldByAHeaderAndLoseWhatStandsBehindABadOne) {
  const Stream streams[] = {
      {{0x41, 0xFC}, "", {}, 2, ""},
      {{0xA0, 0x01, 0x02, 0x41}, "", {}, 0, ""},
      {{0x41, 0xFE, 1, 2, 0xFC, 1, 2}, "A", {}, 0, ""},
      {Bytes(31, 0x41), std::string(31, 'A'), {}, 0, ""},
      {Bytes(32, 0x41), "", {}, 0, ""},
      {Bytes(40, 0x41), "AAAAAAAA", {}, 0, ""},
  };
  for (const Stream& c : streams) ExpectOutcome(c, {c.bytes.size()});
  // The ring begins again in the middle of a read.
  const std::string text = "The quick brown fox jumps over the lazy dog.";
  for (std::size_t cut = 14; cut < 31; ++cut)
    ExpectOutcome({TextBytes(text), text, {}, 0, ""}, {cut, text.size()});
}

class ReceivePathTest : public LinkTest {};

TEST_F(ReceivePathTest, MessagesDoWhatTheirHeaderSays) {
  screen.AlarmPopupOff = true;
  path.HandleMsg(0xFC, 1, 2);
  EXPECT_TRUE(alarms.empty());
  const std::tuple<std::uint8_t, std::uint8_t, const char*> boxes[] = {
      {0xF0, 1, "after starting the DSP Firmware Downloader.  If"},
      {0xEF, 0, "reflash of the Zu chip.  You"},
      {0xEF, 1, "requires DSP firmware 1.52 or later.  You"}};
  for (const auto& [header, kind, part] : boxes) {
    desktop.Expect({part});
    path.HandleMsg(header, kind, 0);
  }
  screen.DriveVersion.SetCaption("1.52");
  path.HandleMsg(0xFF, 10, 47);
  EXPECT_EQ(screen.DriveVersion.Caption(), "") << "of an unknown model";
  EXPECT_EQ(comm.TakeWritten(), "");
}

TEST(PowerUpMessage, ShowsModelAndRevisionInTheOrderOfItsModel) {
  using Shown = std::pair<bool, bool>;  // the model, the revision
  const std::pair<std::uint8_t, Shown> cases[] = {
      {41, {true, false}}, {45, {false, false}}, {46, {true, true}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(int{c.first});
    LinkScene scene;
    scene.screen.ModelList.SetListIndex(-1);
    scene.comm.SetRThreshold(3);
    scene.comm.Feed(Bytes{0xFF, 52, c.first});
    const auto shown = [&] {
      return Shown(scene.screen.ModelList.ListIndex() == c.first - 41,
                   scene.screen.DriveVersion.Caption() == "1.52");
    };
    scene.desktop.CallAfter(0.05, [&] { EXPECT_EQ(shown(), c.second); });
    Delay(scene.desktop, 0.2);
    EXPECT_EQ(shown(), Shown(true, true));
    EXPECT_EQ(scene.comm.TakeWritten(), "QT");
    EXPECT_EQ(scene.comm.RThreshold(), 1);
  }
}

TEST_F(ReceivePathTest, MessagesAreDeliveredWhileABoxStandsOpen) {
  desktop.Expect({.textPart = "reflash of the DSP", .after = 0.5});
  comm.Feed(Bytes{0xF0, 0, 0, 0x41, 0xFC});
  comm.Feed(Bytes{0x00, 0x05, 0x42}, 0.1);
  Delay(desktop, 0.4);  // the notification runs from here on, the box is open until 0.5
  EXPECT_EQ(screen.GlobalBuffer, "AB");
  EXPECT_EQ(alarms, std::vector{5});
}

TEST_F(ReceivePathTest, TransferOrToolThatBeginsDuringAPauseKeepsItsBytes) {
  for (const bool tool : {false, true}) {
    comm.SetRThreshold(1);
    comm.Feed(Bytes{0xFF, 52, 41});
    desktop.CallAfter(0.05, [&] {
      screen.LiveToolActive = tool;
      comm.SetRThreshold(tool ? 1 : 0);
      comm.Feed("late");
    });
    Delay(desktop, 0.5);
    EXPECT_EQ(screen.GlobalBuffer, "");
    EXPECT_EQ(tool ? path.Ring().RingCount() : static_cast<int>(comm.Input().size()), 4);
  }
}

class LiveToolTest : public ReceivePathTest {
 protected:
  LiveToolTest() {
    path.AddLiveTool("VTLterm", [this](char c) {
      typed += c;
      if (c == 'a') comm.Feed("\xFC\x01\x02");
    });
    screen.Show();
    tool.Show();
    screen.LiveToolActive = true;
  }
  void Arrives(std::string_view text) {
    comm.Feed(text);
    Delay(desktop, 0.0);
  }
  Form tool{desktop, "VTLterm"};
  std::string typed;
};

TEST_F(LiveToolTest, InFrontGetsEveryByteInOrderAcrossNestedArrivals) {
  Arrives("xayz");
  EXPECT_EQ(typed, "xayz\xFC\x01\x02");
  EXPECT_TRUE(alarms.empty());
}

TEST_F(LiveToolTest, BehindAnotherWindowItsBytesWaitAndABurstIsLost) {
  desktop.BroughtToFront(screen);
  Arrives(std::string(32, 'x') + "12345678");
  EXPECT_EQ(path.Ring().RingCount(), 8);
  desktop.BroughtToFront(tool);
  Delay(desktop, 0.0);
  EXPECT_EQ(typed, "") << "delivered at the next arrival only";
  Arrives("9");
  EXPECT_EQ(typed, "123456789");
}

}  // namespace
}  // namespace kavr6
