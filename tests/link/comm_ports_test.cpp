#include "link/comm_ports.h"

#include "tests/link/link_fixture.h"

namespace kavr6 {
namespace {

class CommPortsTest : public testing::Test {
 protected:
  CommPortsTest() {
    screen.CommNumber = 1;
    ports.LoadCommList();
  }
  void TearDown() override { EXPECT_NO_THROW(desktop.CheckNothingLeft()); }
  void RefuseUpTo(int last) {
    for (int port = 1; port <= last; ++port) comm.Refuse(port, "Port in use");
  }
  void ExpectState(int startPort, int commNumber, bool open, const std::vector<int>& opened) {
    EXPECT_EQ(screen.StartPort, startPort);
    EXPECT_EQ(screen.CommNumber.Get(), commNumber);
    EXPECT_EQ(screen.CommList.ListIndex(), commNumber - 1);
    EXPECT_EQ(NoCommPort(comm), !open);
    EXPECT_EQ(comm.Opened(), opened);
  }
  void ExpectLastBox(const MessageBox& box) {
    EXPECT_EQ(desktop.Boxes().back().title, box.title);
    EXPECT_EQ(desktop.Boxes().back().text, box.text);
    EXPECT_EQ(desktop.Boxes().back().icon, box.icon);
  }

  HeadlessDesktop desktop;
  MainScreen screen{desktop};
  ScriptedComm comm{desktop};
  CommPorts ports{screen, comm};
};

TEST_F(CommPortsTest, StartTakesTheFirstPortOnceWhenItIsFree) {
  ports.StartComm();
  ExpectState(1, 1, true, {1});
  EXPECT_EQ(comm.Settings(), "9600,N,8,1");
  EXPECT_EQ(comm.RThreshold(), 1);
  EXPECT_EQ(comm.TakeWritten(), "");
}

TEST_F(CommPortsTest, StartBehindBusyPortsOpensTheFreeOneTwiceAndGreetsIt) {
  RefuseUpTo(2);
  desktop.Expect({"Error on Comm1:  Port in use.  Will try Comm2."});
  desktop.Expect({"Comm2"});
  ports.StartComm();
  ExpectLastBox(
      {"Error on Comm2:  Port in use.  Will try Comm3.", BoxIcon::Exclamation, "Communication Error"});
  ExpectState(3, 3, true, {3, 3});
  EXPECT_EQ(comm.TakeWritten(), "0");
}

TEST_F(CommPortsTest, StartWithoutAnyPortEndsClosedOnRowOneWhichThenDoesNothing) {
  RefuseUpTo(8);
  for (int port = 1; port < 8; ++port) desktop.Expect({"Will try Comm" + std::to_string(port + 1) + "."});
  desktop.Expect({"Could not find an open comm port."});
  ports.StartComm();
  EXPECT_EQ(desktop.Boxes().back().title, "No open port");
  ExpectState(0, 1, false, {});
  comm.Accept(1);
  comm.Accept(4);
  screen.CommList.Select(0);
  ExpectState(0, 1, false, {});
  screen.CommList.Select(3);
  ExpectState(0, 4, true, {4});
}

TEST_F(CommPortsTest, ChoosingABusyPortReturnsToTheOldOneAndFailsQuietlyWhenThatIsGoneToo) {
  ports.StartComm();
  comm.Refuse(5, "Port in use");
  desktop.Expect({"COM port"});
  screen.CommList.Select(4);
  ExpectLastBox({"COM port 5 is not available.", BoxIcon::Exclamation, "COM Error"});
  ExpectState(1, 1, true, {1, 1});

  comm.Refuse(1, "Port in use");
  desktop.Expect({"COM port 5"});
  screen.CommList.Select(4);
  ExpectState(1, 1, false, {1, 1});
  Write2Bytes(comm, 1, 2);
  EXPECT_EQ(comm.TakeWritten(), "");
}

TEST_F(CommPortsTest, RowsTellTheDeviceBehindThem) {
  EXPECT_EQ(screen.CommList.ListIndex(), -1);
  EXPECT_EQ(screen.CommList.ItemToolTip(7), "no device");
  comm.NameDevice(8, "/dev/ttyUSB0");
  ports.RefreshDeviceNames();
  EXPECT_EQ(screen.CommList.ItemToolTip(7), "/dev/ttyUSB0");
}

}  // namespace
}  // namespace kavr6
