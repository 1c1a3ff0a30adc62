// The serial control on pseudo-terminals.
#include "adapters/qt/serial/serial_comm.h"

#include <QTemporaryDir>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <memory>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/serial/open_failure.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

/// The far end of a line.
class Peer {
 public:
  Peer() : master_(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
    grantpt(master_);
    unlockpt(master_);
    device_ = ptsname(master_);
    termios line{};
    tcgetattr(master_, &line);
    cfmakeraw(&line);
    tcsetattr(master_, TCSANOW, &line);
    // The system gives the same names again while another test may still be taking its lock away.
    QSerialPort probe;
    probe.setPortName(QString::fromStdString(device_));
    for (int i = 0; i < 10000 && !probe.open(QIODevice::ReadWrite); ++i) std::this_thread::yield();
  }
  ~Peer() { HangUp(); }
  const std::string& Device() const { return device_; }
  void Say(const std::string& bytes) const {
    ASSERT_EQ(write(master_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  /// What has come in, after at most this wait for a first byte.
  std::string Hear(int milliseconds = 1000) const {
    pollfd ready{master_, POLLIN, 0};
    std::string heard(65536, 0);
    const ssize_t count = poll(&ready, 1, milliseconds) > 0 ? read(master_, heard.data(), heard.size()) : 0;
    heard.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return heard;
  }
  void HangUp() {
    if (master_ >= 0) close(master_);
    master_ = -1;
  }

 private:
  int master_;
  std::string device_;
};

std::string Text(const Bytes& bytes) { return {bytes.begin(), bytes.end()}; }

class SerialCommTest : public testing::Test {
 protected:
  SerialCommTest() { Pin(1, peer_.Device()); }

  void Pin(int number, const fs::path& device) const {
    const fs::path link = links_ / ("COM" + std::to_string(number));
    fs::remove(link);
    fs::create_symlink(device, link);
  }
  static void Open(SerialComm& comm, int number = 1, const std::string& settings = "9600,N,8,1") {
    comm.SetCommPort(number);
    comm.SetSettings(settings);
    comm.SetPortOpen(true);
  }
  /// The text of the error that opening gives, or "open".
  static std::string OpenText(SerialComm& comm, int number, const std::string& settings = "9600,N,8,1") {
    try {
      Open(comm, number, settings);
    } catch (const RuntimeError& error) {
      return error.what();
    }
    return "open";
  }
  bool Waiting(int count) {
    return desktop_.PumpEventsUntil([&] { return comm_.InBufferCount() >= count; }, 2.0);
  }
  /// Processor seconds that letting events run for 0.3 seconds takes.
  double BusySeconds() {
    const std::clock_t start = std::clock();
    Delay(desktop_, 0.3);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  }

  QTemporaryDir directory_;
  fs::path links_{directory_.path().toStdString()};
  QtDesktop desktop_{[](const std::string&) { return std::unique_ptr<QWidget>(); }};
  Peer peer_;
  SerialComm comm_{desktop_, links_};
};

TEST_F(SerialCommTest, CarriesEveryByteValueBothWaysAgainAfterReopening) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  for (int round = 0; round < 2; ++round) {
    peer_.Say("stale");
    Open(comm_);
    comm_.Output(all);
    EXPECT_EQ(peer_.Hear(), all) << "without a single event";
    peer_.Say(all);
    ASSERT_TRUE(Waiting(256));
    EXPECT_EQ(Text(comm_.Input()), all);
    comm_.Output("end");
    comm_.SetPortOpen(false);
    EXPECT_EQ(peer_.Hear(), "end");
  }
}

TEST_F(SerialCommTest, NotifiesAtTheThresholdAlsoWhileAHandlerWaits) {
  int level = 0;
  int deepest = 0;
  comm_.OnComm.Set([&](int) {
    deepest = std::max(deepest, ++level);
    const std::string got = Text(comm_.Input());
    if (got == "abc") {
      peer_.Say("def");
      desktop_.PumpEventsUntil([&] { return deepest == 2; }, 2.0);
    }
    --level;
  });
  Open(comm_);
  comm_.SetRThreshold(3);
  peer_.Say("ab");
  ASSERT_TRUE(Waiting(2));
  desktop_.PumpEvents();
  EXPECT_EQ(deepest, 0);
  peer_.Say("c");
  desktop_.PumpEventsUntil([&] { return deepest > 0 && level == 0; }, 2.0);
  EXPECT_EQ(deepest, 2);
}

TEST_F(SerialCommTest, HangUpClosesOnceAndStaysCalm) {
  int changes = 0;
  comm_.StateChanged.Set([&] { ++changes; });
  Open(comm_);
  peer_.HangUp();
  EXPECT_TRUE(desktop_.PumpEventsUntil([&] { return !comm_.PortOpen(); }, 2.0));
  comm_.Output("into the void");
  EXPECT_LT(BusySeconds(), 0.05);
  EXPECT_EQ(changes, 2);
}

TEST_F(SerialCommTest, HangUpFoundWhileWritingIsForgottenOnceReopened) {
  Open(comm_);
  peer_.HangUp();
  comm_.Output("x");
  comm_.SetPortOpen(false);
  const Peer next;
  Pin(1, next.Device());
  Open(comm_);
  next.Say("back");
  EXPECT_TRUE(Waiting(4));
  EXPECT_TRUE(comm_.PortOpen());
}

TEST_F(SerialCommTest, PeerThatStopsReadingIsNoHangUp) {
  Open(comm_);
  const std::string much(70000, 'z');
  comm_.Output(much);
  EXPECT_LT(BusySeconds(), 0.05);
  std::string heard;
  for (int turn = 0; turn < 1000 && heard.size() < much.size(); ++turn) {
    desktop_.PumpEvents();
    heard += peer_.Hear(10);
  }
  EXPECT_EQ(heard.size(), much.size());
  peer_.Say("still here");
  EXPECT_TRUE(Waiting(10));
  EXPECT_TRUE(comm_.PortOpen());
}

TEST_F(SerialCommTest, RefusalsAreSaidInPlainWords) {
  Pin(2, links_ / "COM1");
  Pin(3, "/dev/no-such-device");
  std::ofstream(links_ / "COM4") << "a file";
  EXPECT_EQ(OpenText(comm_, 3), "The device /dev/no-such-device is not there");
  EXPECT_NE(OpenText(comm_, 4).find("COM4 cannot be opened as a serial port: "), std::string::npos);
  EXPECT_FALSE(comm_.PortOpen());
  Open(comm_);
  SerialComm other(desktop_, links_);
  EXPECT_EQ(OpenText(other, 2), peer_.Device() + " is in use by another program");
  comm_.Release();
  EXPECT_EQ(OpenText(other, 2), "open");
}

TEST_F(SerialCommTest, LineSettingsOfAnotherFormAreRefused) {
  for (const char* good : {"9600,n,8,1", "19200,E,7,2"}) {
    EXPECT_EQ(OpenText(comm_, 1, good), "open") << good;
    comm_.SetPortOpen(false);
  }
  for (const char* bad : {"", "9600", "9600,N,8", "9600,N,8,1,", "0,N,8,1", "fast,N,8,1", "9600,X,8,1",
                          "9600,N,9,1", "9600,N,8,3"}) {
    EXPECT_EQ(OpenText(comm_, 1, bad), "The line settings \"" + std::string(bad) + "\" are not possible");
  }
}

TEST_F(SerialCommTest, DeviceOfAKilledProgramOpensAgain) {
  const int keeper = open(peer_.Device().c_str(), O_RDWR | O_NOCTTY);
  const pid_t child = fork();
  if (child == 0) {
    SerialComm comm(desktop_, links_);
    _exit(OpenText(comm, 1) == "open" ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  ASSERT_EQ(status, 0);
  int exclusive = -1;
  ioctl(keeper, TIOCGEXCL, &exclusive);
  EXPECT_EQ(exclusive, 0);
  close(keeper);
  EXPECT_EQ(OpenText(comm_, 1), "open");
}

TEST(OpenFailure, MissingPermissionNamesTheGroupThatHasIt) {
  EXPECT_EQ(
      NoPermissionText("/dev/ttyUSB0", "dialout"),
      "You have no permission to use /dev/ttyUSB0; join the group \"dialout\", then log out and in again");
  EXPECT_EQ(NoPermissionText("/dev/ttyS0", ""),
            "You have no permission to use /dev/ttyS0; the administrator of this computer can give it");
  QTemporaryDir directory;
  const fs::path file = directory.filePath("device").toStdString();
  std::ofstream(file) << "";
  fs::permissions(file, fs::perms(0660));
  EXPECT_FALSE(GroupWithAccess(file).empty());
  fs::permissions(file, fs::perms(0640));
  EXPECT_EQ(GroupWithAccess(file), "");
}

TEST(PortNames, PinnedDevicesKeepTheirNumberAndTheOthersFillTheRest) {
  QTemporaryDir directory;
  const fs::path links = directory.path().toStdString();
  const fs::path devices = links / "dev";
  fs::create_directory(devices);
  std::vector<std::string> system;
  for (const char* name : {"ttyACM0", "ttyUSB2", "ttyUSB10"}) {
    system.push_back((devices / name).string());
    std::ofstream(system.back()) << "";
  }
  fs::create_symlink("dev/ttyUSB2", links / "COM3");
  fs::create_symlink("dev/gone", links / "COM1");
  const std::vector<std::string> expected{(devices / "gone").string(), system[0], system[1], system[2], ""};
  for (int number = 1; number <= 5; ++number) {
    EXPECT_EQ(DeviceForPort(number, links, system), expected[static_cast<std::size_t>(number - 1)]) << number;
  }
  EXPECT_TRUE(NaturalLess("ttyUSB2", "ttyUSB10"));
  EXPECT_FALSE(NaturalLess("ttyUSB10", "ttyUSB2"));
  EXPECT_TRUE(NaturalLess("ttyS31", "ttyUSB0"));
}

}  // namespace
}  // namespace kavr6
