// The serial control on pseudo-terminals.
#include "adapters/qt/serial/serial_comm.h"

#include <QTemporaryDir>
#include <algorithm>
#include <fstream>
#include <memory>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "adapters/qt/base/qt_event_pump.h"
#include "apps/drive_simulator/pseudo_port.h"
#include "platform/runtime_error.h"
#include "tests/adapters/processor_time.h"

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

std::string Text(const Bytes& bytes) { return {bytes.begin(), bytes.end()}; }

class SerialCommTest : public testing::Test {
 protected:
  SerialCommTest() { Plug(); }

  void Plug() {
    peer_.Plug();
    // The system gives the same names again while another test may still be taking its lock away.
    QSerialPort probe(QString::fromStdString(peer_.Terminal()));
    for (int i = 0; i < 10000 && !probe.open(QIODevice::ReadWrite); ++i) std::this_thread::yield();
  }
  void Say(const std::string& bytes) {
    for (const char byte : bytes) peer_.Write(static_cast<std::uint8_t>(byte));
  }
  /// What has come in, after at most this wait for a first byte.
  std::string Hear(int milliseconds = 1000) {
    pollfd ready{peer_.Descriptor(), POLLIN, 0};
    return poll(&ready, 1, milliseconds) > 0 ? Text(peer_.Read()) : "";
  }
  /// The text of the error that opening gives, or "open".
  static std::string Open(SerialComm& comm, int number = 1, const std::string& settings = "9600,N,8,1") {
    try {
      comm.SetCommPort(number);
      comm.SetSettings(settings);
      comm.SetPortOpen(true);
    } catch (const RuntimeError& error) {
      return error.what();
    }
    return "open";
  }
  bool Waiting(int count) {
    return pump_.PumpEventsUntil([&] { return comm_.InBufferCount() >= count; }, 2.0);
  }
  /// Lets events run for a while, which must take hardly any processor time.
  void ExpectCalm() {
    ExpectCalm([this] { Delay(pump_, 0.3); });
  }
  static void ExpectCalm(const Scheduler::Task& wait) {
    const double start = ProcessorSeconds();
    wait();
    EXPECT_LT(ProcessorSeconds() - start, 0.05);
  }

  QTemporaryDir directory_;
  fs::path links_{directory_.path().toStdString()};
  QtEventPump pump_;
  PseudoPort peer_{links_ / "COM1"};
  SerialComm comm_{pump_, links_};
};

TEST_F(SerialCommTest, CarriesEveryByteValueBothWaysAgainAfterReopening) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  for (int round = 0; round < 2; ++round) {
    Say("stale");
    Open(comm_);
    comm_.Output(all);
    EXPECT_EQ(Hear(), all) << "without a single event";
    Say(all);
    ASSERT_TRUE(Waiting(256));
    EXPECT_EQ(Text(comm_.Input()), all);
    comm_.Output("end");
    comm_.SetPortOpen(false);
    EXPECT_EQ(Hear(), "end");
  }
}

TEST_F(SerialCommTest, TalkWithoutAGapIsReadInPartsAndWhole) {
  Open(comm_);
  comm_.SetRThreshold(1);
  int notices = 0;
  std::string heard;
  comm_.OnComm.Set([&](int) {
    ++notices;
    heard += Text(comm_.Input());
  });
  std::string said;
  for (int i = 0; i < 300; ++i) {
    said += static_cast<char>('a' + i % 26);
    pump_.CallAfter(0.001 * i, [&, i] { Say(said.substr(static_cast<std::size_t>(i), 1)); });
  }
  pump_.PumpEventsUntil([&] { return heard.size() == said.size(); }, 5.0);
  EXPECT_EQ(heard, said);
  EXPECT_LT(notices, 200) << "the first 48 byte by byte, the others in parts";
  double quickest = 1.0;
  for (int i = 0; i < 5; ++i) {
    Say(std::string(60, 'x'));
    pump_.PumpEventsUntil([&] { return heard.ends_with('x'); }, 2.0);
    comm_.Output("?");
    const double asked = pump_.Now();
    for (const char* answer : {"4", "B"}) {
      Say(answer);
      pump_.PumpEventsUntil([&] { return heard.ends_with(answer); }, 2.0);
    }
    quickest = std::min(quickest, pump_.Now() - asked);
  }
  EXPECT_LT(quickest, 0.03) << "an answer does not wait for what was talked before the question";
  heard.resize(300);
  // A blocking wait and a hang-up do not wait for the end of a rest.
  Say(std::string(100, 'x'));
  pump_.PumpEventsUntil([&] { return heard.size() > 300; }, 2.0);
  Say(std::string(20, 'y'));
  comm_.SetRThreshold(0);
  EXPECT_TRUE(comm_.WaitBlocking(static_cast<int>(420 - heard.size()), 2.0));
  peer_.Unplug();
  EXPECT_TRUE(pump_.PumpEventsUntil([&] { return !comm_.PortOpen(); }, 2.0));
}

TEST_F(SerialCommTest, HangUpClosesOnceAndIsForgottenOnceReopened) {
  int changes = 0;
  comm_.StateChanged.Set([&] { ++changes; });
  Open(comm_);
  peer_.Unplug();
  EXPECT_TRUE(pump_.PumpEventsUntil([&] { return !comm_.PortOpen(); }, 2.0));
  comm_.Output("into the void");
  ExpectCalm();
  EXPECT_EQ(changes, 2);
  Plug();
  Open(comm_);
  peer_.Unplug();
  comm_.Output("x");  // finds it out
  comm_.SetPortOpen(false);
  Plug();
  Open(comm_);
  Say("back");
  EXPECT_TRUE(Waiting(4));
}

TEST_F(SerialCommTest, NewsOfADeviceComeWithItAndOpenNothing) {
  Open(comm_);
  int told = 0;
  const auto watch = comm_.WatchDevices(DeviceNews::Devices, [&] { ++told; });
  comm_.Output("x");
  ExpectCalm();
  EXPECT_EQ(told, 0) << "what this program does is no news";
  peer_.Unplug();
  EXPECT_TRUE(pump_.PumpEventsUntil([&] { return told > 0 && !comm_.PortOpen(); }, 2.0));
  EXPECT_FALSE(comm_.DeviceBack(1));
  ExpectCalm();
  told = 0;
  Plug();
  EXPECT_TRUE(pump_.PumpEventsUntil([&] { return told > 0; }, 1.0));
  EXPECT_TRUE(comm_.DeviceBack(1) && !comm_.PortOpen());
}

TEST_F(SerialCommTest, TerminalOfSomebodyElseUnderTheOldNameIsNotTheDevice) {
  fs::create_symlink(peer_.Terminal(), links_ / "COM2");
  Open(comm_, 2);
  const std::string name = peer_.Terminal();
  peer_.Unplug();
  ASSERT_TRUE(pump_.PumpEventsUntil([&] { return !comm_.PortOpen(); }, 2.0));
  PseudoPort stranger(links_ / "COM3");
  stranger.Plug();
  if (stranger.Terminal() != name) GTEST_SKIP() << "the system has given another name";
  EXPECT_EQ(comm_.Look(2).state, PortLook::State::There);
  EXPECT_FALSE(comm_.DeviceBack(2));
  fs::remove(links_ / "COM2");
  fs::create_symlink(name, links_ / "COM2");
  EXPECT_TRUE(comm_.DeviceBack(2));
}

TEST_F(SerialCommTest, FolderOfTheLinksMayComeLater) {
  const fs::path later = links_ / "not" / "yet";
  SerialComm comm(pump_, later);
  int told = 0;
  const auto watch = comm.WatchDevices(DeviceNews::Devices, [&] { ++told; });
  fs::create_directories(later);
  EXPECT_TRUE(pump_.PumpEventsUntil([&] { return told > 0; }, 1.0));
  told = 0;
  fs::create_symlink(peer_.Terminal(), later / "COM5");
  EXPECT_TRUE(pump_.PumpEventsUntil([&] { return told > 0; }, 1.0));
  EXPECT_EQ(comm.Look(5).state, PortLook::State::There);
}

TEST_F(SerialCommTest, EightPortsOfWhichFourVanishAreSeenAsTheyAre) {
  std::vector<std::unique_ptr<PseudoPort>> peers;
  for (int port = 2; port <= 8; ++port) {
    peers.push_back(std::make_unique<PseudoPort>(links_ / ("COM" + std::to_string(port))));
    peers.back()->Plug();
  }
  const auto seen = [this] {
    std::string letters;
    for (int port = 1; port <= 8; ++port) letters += "-gtuao"[static_cast<int>(comm_.Look(port).state)];
    return letters;
  };
  Open(comm_);
  EXPECT_EQ(seen(), "ottttttt");
  bool told = false;
  const auto watch = comm_.WatchDevices(DeviceNews::Users, [&] { told = true; });
  SerialComm other(pump_, links_);
  Open(other, 8);
  EXPECT_TRUE(pump_.PumpEventsUntil([&] { return told; }, 1.0)) << "the lock file has come";
  other.SetPortOpen(false);
  told = false;
  for (const int port : {0, 2, 4}) peers[static_cast<std::size_t>(port)]->Unplug();
  fs::create_symlink("/dev/no-such-device", links_ / "COM4");
  EXPECT_TRUE(pump_.PumpEventsUntil([&] { return told; }, 1.0));
  const std::string now = seen();
  for (const auto& [port, state] : {std::pair(1, 'o'), {3, 't'}, {4, 'g'}, {5, 't'}, {7, 't'}, {8, 't'}})
    EXPECT_EQ(now[static_cast<std::size_t>(port - 1)], state) << port << " in " << now;
}

TEST_F(SerialCommTest, PeerThatStopsReadingIsNoHangUp) {
  Open(comm_);
  const std::string much(70000, 'z');
  comm_.Output(much);
  ExpectCalm();
  std::string heard;
  for (int turn = 0; turn < 1000 && heard.size() < much.size(); ++turn) {
    pump_.PumpEvents();
    heard += Hear(10);
  }
  EXPECT_EQ(heard.size(), much.size());
  Say("still here");
  EXPECT_TRUE(Waiting(10));
}

TEST_F(SerialCommTest, FailuresAreCountedAnewAfterReopening) {
  for (int round = 0; round < 3; ++round) {
    ASSERT_EQ(Open(comm_), "open");
    comm_.Output(std::string(70000, 'z'));
    // A hundred in a row would close the port.
    for (int refused = 0; refused < 60; ++refused) comm_.Output("z");
    pump_.PumpEvents();
    EXPECT_TRUE(comm_.PortOpen()) << round;
    comm_.SetPortOpen(false);
  }
}

TEST_F(SerialCommTest, BlockingWaitTakesBytesInAndServesNothingElse) {
  std::string log;
  comm_.OnComm.Set([&](int) { log += Text(comm_.Input()); });
  Open(comm_);
  comm_.SetRThreshold(1);
  pump_.Post([&] { log += "click "; });
  pump_.CallAfter(1e-6, [&] { log += "timer "; });
  std::thread drive([this] {
    EXPECT_EQ(Hear(), "HG\r");
    Say("HG=");
    poll(nullptr, 0, 20);
    Say("123\r");
  });
  comm_.Output("HG\r");
  ExpectCalm([this] { EXPECT_TRUE(comm_.WaitBlocking(7, 2.0)); });
  drive.join();
  EXPECT_EQ(log, "");
  ExpectCalm([this] {
    const double start = pump_.Now();
    EXPECT_FALSE(comm_.WaitBlocking(8, 0.1));
    EXPECT_GE(pump_.Now() - start, 0.1);
    EXPECT_LT(pump_.Now() - start, 0.12);
  });
  // A silent drive is no failing port, however often it is asked.
  for (int turn = 0; turn < 100; ++turn) comm_.WaitBlocking(8, 0.001);
  pump_.PumpEvents();
  EXPECT_EQ(log, "click timer HG=123\r");
  Say("!");
  EXPECT_TRUE(pump_.PumpEventsUntil([&] { return log.ends_with('!'); }, 2.0)) << "the port has gone deaf";
}

TEST_F(SerialCommTest, HangUpEndsABlockingWaitAndIsToldAfterwards) {
  int changes = 0;
  comm_.StateChanged.Set([&] { ++changes; });
  Open(comm_);
  std::thread drive([this] {
    Hear();
    peer_.Unplug();
  });
  comm_.Output("HG\r");
  const double start = pump_.Now();
  ExpectCalm([this] { EXPECT_FALSE(comm_.WaitBlocking(7, 5.0)); });
  drive.join();
  EXPECT_FALSE(comm_.WaitBlocking(7, 5.0));
  EXPECT_LT(pump_.Now() - start, 1.0);
  EXPECT_EQ(std::pair(comm_.PortOpen(), changes), std::pair(true, 1));
  pump_.PumpEvents();
  EXPECT_EQ(std::pair(comm_.PortOpen(), changes), std::pair(false, 2));
}

TEST_F(SerialCommTest, RefusalsAreSaidInPlainWords) {
  fs::create_symlink("COM1", links_ / "COM2");
  fs::create_symlink("/dev/no-such-device", links_ / "COM3");
  EXPECT_EQ(Open(comm_, 3), "The device /dev/no-such-device is not there");
  EXPECT_EQ(Open(comm_, 1, "9600,N,8,1,"), "The line settings \"9600,N,8,1,\" are not possible");
  EXPECT_EQ(Open(comm_, 1, "19200,e,7,2"), "open");
  SerialComm other(pump_, links_);
  EXPECT_EQ(Open(other, 2), peer_.Terminal() + " is in use by another program");
  comm_.Release();
  EXPECT_EQ(Open(other, 2), "open");
}

TEST_F(SerialCommTest, DeviceOfAKilledProgramOpensAgain) {
  int done[2];
  ASSERT_EQ(pipe(done), 0);
  const pid_t other = fork();
  if (other == 0) {
    const char word = Open(comm_) == "open" ? 'y' : 'n';
    while (write(done[1], &word, 1) == 1) pause();
  }
  char opened = 0;
  EXPECT_TRUE(read(done[0], &opened, 1) == 1 && opened == 'y');
  EXPECT_EQ(comm_.Look(1).state, PortLook::State::InUse);
  kill(other, SIGKILL);
  waitpid(other, nullptr, 0);
  EXPECT_EQ(comm_.Look(1).state, PortLook::State::There);
  // Root may open it all the same, so the mark itself is looked at.
  const int terminal = open(peer_.Terminal().c_str(), O_RDWR | O_NOCTTY);
  int exclusive = -1;
  ioctl(terminal, TIOCGEXCL, &exclusive);
  EXPECT_EQ(exclusive, 0);
  close(terminal);
}

TEST(PortNames, PinnedDevicesKeepTheirNumberAndTheOthersFillTheRest) {
  QTemporaryDir directory;
  const fs::path links = directory.path().toStdString();
  std::vector<std::string> system;
  for (const char* name : {"ttyACM0", "ttyUSB2", "ttyUSB10"}) {
    system.push_back((links / name).string());
    std::ofstream(system.back()) << "";
  }
  fs::create_symlink("ttyUSB2", links / "COM3");
  fs::create_symlink("gone", links / "COM1");
  const std::string expected[] = {(links / "gone").string(), system[0], system[1], system[2], ""};
  for (int number = 1; number <= 5; ++number)
    EXPECT_EQ(DeviceForPort(number, links, system), expected[number - 1]) << number;
  // A user's own links go before the program's.
  const LinkFolders both{links / "own", links};
  fs::create_directory(links / "own");
  fs::create_symlink("../ttyACM0", links / "own" / "COM3");
  EXPECT_EQ(DeviceForPort(3, both, system), system[0]);
  EXPECT_EQ(DeviceForPort(2, both, system), system[1]);
  EXPECT_EQ(DeviceForPort(1, both, system), expected[0]);
  EXPECT_TRUE(NaturalLess("ttyUSB2", "ttyUSB10") && !NaturalLess("ttyUSB10", "ttyUSB2"));
}

}  // namespace
}  // namespace kavr6
