#include "adapters/qt/serial/serial_comm.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <optional>
#include <thread>
#include <utility>

#include "adapters/qt/serial/device_locks.h"
#include "adapters/qt/serial/line_settings.h"
#include "adapters/qt/serial/open_failure.h"

#ifdef Q_OS_WIN
#include <windows.h>

#include "adapters/qt/serial/device_notices.h"
#else
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>

#include "adapters/qt/serial/folder_watch.h"
#endif

namespace kavr6 {
namespace {

/// Some drivers fail for ever without saying that the device is gone.
constexpr int kMostFailuresInARow = 100;

/// A line that talks without a gap, as into a terminal, is read in parts: to wake for each of its bytes costs
/// more than all that is done with them. No answer to a question is as long; an image is read without a
/// notification.
constexpr int kUnbrokenBytes = 48;
constexpr double kGapSeconds = 0.003;
constexpr double kRestSeconds = 0.08;
constexpr int kGoesOnBytes = 24;  // behind a rest

constexpr const char* kPseudoTerminals = "/dev/pts/";

/// The lock that keeps a device from being opened twice goes by the name, so links are resolved first. On
/// Windows it is no file.
QString WithoutLinks(const std::string& device) {
  QString name = QString::fromStdString(device);
#ifdef Q_OS_UNIX
  const QString real = QFileInfo(name).canonicalFilePath();
  if (!real.isEmpty()) name = real;
#endif
  return name;
}

/// A pseudo-terminal that is opened for exclusive use keeps that mark when its user is killed, and then
/// refuses every later one for as long as the program at its other end lives. The lock file does not have
/// this fault.
void ShareIfPseudoTerminal([[maybe_unused]] QSerialPort& port, [[maybe_unused]] const QString& name) {
#ifdef Q_OS_LINUX
  if (name.startsWith(kPseudoTerminals)) ioctl(port.handle(), TIOCNXCL);
#endif
}

#ifdef Q_OS_WIN
/// Asks the device itself, which an adapter that has been pulled out does not answer.
std::optional<COMSTAT> StateOf(const QSerialPort& port) {
  COMSTAT state{};
  if (!ClearCommError(port.handle(), nullptr, &state)) return std::nullopt;
  return state;
}
#endif

/// Bytes that the device has not sent yet; 0 also where it cannot be asked.
int BytesToLeave(const QSerialPort& port) {
#ifdef Q_OS_WIN
  const auto state = StateOf(port);
  return state ? static_cast<int>(state->cbOutQue) : 0;
#else
  int left = 0;
  return ioctl(port.handle(), TIOCOUTQ, &left) == 0 ? left : 0;
#endif
}

/// Closing loses what is still on its way out, or spoils it by the bit rate that the device had before. Some
/// devices never send it: they are not waited for.
void LetBytesLeave(QSerialPort& port) {
  constexpr int kMostMs = 200;
  const QDeadlineTimer end(kMostMs);
  port.flush();
  if (port.bytesToWrite() > 0) port.waitForBytesWritten(kMostMs);
  while (!end.hasExpired() && BytesToLeave(port) > 0)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
#ifdef Q_OS_UNIX
  if (!end.hasExpired()) tcdrain(port.handle());  // the last few are in the device
#endif
}

}  // namespace

SerialComm::SerialComm(Scheduler& scheduler, LinkFolders links)
    : MSComm(scheduler), scheduler_(scheduler), names_(std::move(links)) {
  QObject::connect(&port_, &QSerialPort::readyRead, [this] { ReadyRead(); });
  QObject::connect(&port_, &QSerialPort::errorOccurred, [this](QSerialPort::SerialPortError error) {
    // The end of a blocking wait is told as an error, too.
    const bool failed = error != QSerialPort::NoError && error != QSerialPort::TimeoutError;
    if (failed && port_.isOpen()) PortFailed();
  });
}

void SerialComm::Release() {
  port_.disconnect();
  CloseDevice();
}

void SerialComm::OpenDevice(int number) {
  const std::string device = names_.Device(number);
  if (device.empty()) throw RuntimeError(8002, "There is no serial port for COM" + std::to_string(number));
  const QString name = WithoutLinks(device);
  port_.setPortName(name);
  ApplyLineSettings(port_, Settings());
  if (!port_.open(QIODevice::ReadWrite)) throw OpenFailure(name.toStdString(), port_);
  ShareIfPseudoTerminal(port_, name);
  // Not every device has these two lines.
  port_.setDataTerminalReady(true);
  port_.setRequestToSend(true);
  port_.clear();  // what came in before is none of ours
  failuresInARow_ = 0;
  opened_ = name;
  openedBy_ = names_.LinkMark(number);
}

PortLook SerialComm::Look(int number) const {
  using enum PortLook::State;
  const std::string device = names_.Device(number);
  if (device.empty()) return {};
  const QFileInfo file(WithoutLinks(device));
  if (PortOpen() && file.filePath() == opened_) return {device, Open};
  if (file.isAbsolute() && !file.exists()) return {device, NotThere};
  if (file.isAbsolute() && !(file.isReadable() && file.isWritable())) return {device, NotAllowed};
  return {device, LockedByAnother(file.filePath().toStdString()) ? InUse : There};
}

bool SerialComm::DeviceBack(int number) const {
  const PortLook look = Look(number);
  if (look.state == PortLook::State::NoDevice || look.state == PortLook::State::NotThere) return false;
  const QString name = WithoutLinks(look.device);
  // The name of a pseudo-terminal goes to whoever asks next for one, such as a shell.
  if (name.startsWith(kPseudoTerminals)) return names_.LinkMark(number) != openedBy_;
  return names_.Pinned(number) || name == opened_;
}

#ifdef Q_OS_WIN
std::unique_ptr<DeviceWatch> SerialComm::WatchDevices(DeviceNews /*news*/, std::function<void()> told) {
  return std::make_unique<DeviceNotices>(scheduler_, std::move(told));
}
#else
std::unique_ptr<DeviceWatch> SerialComm::WatchDevices(DeviceNews news, std::function<void()> told) {
  const auto folders = [this, news] {
    std::vector<std::filesystem::path> all = names_.Folders();
    if (news == DeviceNews::Users) all.push_back(LockFolder());
    return all;
  };
  return std::make_unique<FolderWatch>(scheduler_, folders, std::move(told));
}
#endif

void SerialComm::CloseDevice() {
  EndRest();
  if (port_.isOpen()) {
    const QSignalBlocker unheard(port_);  // whether the line is dead matters no more
    LetBytesLeave(port_);
    port_.close();
  }
}

void SerialComm::Send(std::span<const std::uint8_t> bytes) {
  if (!port_.isOpen()) return;  // lost; the report is on its way
  // What comes now may be an answer, for which somebody waits.
  EndRest();
  TakeBytes();
  unbroken_ = 0;
  port_.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
  port_.flush();
}

void SerialComm::Block(const std::function<bool()>& done, double limit) {
  constexpr double kLongestSlice = 1000.0;
  EndRest();
  TakeBytes();  // which the port may hold already
  const double deadline = scheduler_.Now() + limit;
  for (double left = limit; left > 0.0 && !done(); left = deadline - scheduler_.Now())
    port_.waitForReadyRead(static_cast<int>(std::ceil(std::min(left, kLongestSlice) * 1000.0)));
}

void SerialComm::ReadyRead() {
  if (rest_ != 0) return;
  TakeBytes();
  if (unbroken_ >= kUnbrokenBytes && RThreshold() == 1) Rest();
}

// With a full buffer the port does not look at the device.
void SerialComm::Rest() {
  port_.setReadBufferSize(1);
  rest_ = scheduler_.CallAfter(kRestSeconds, [this] {
    EndRest();
    TakeBytes();
  });
}

void SerialComm::EndRest() {
  if (rest_ == 0) return;
  scheduler_.Cancel(std::exchange(rest_, 0));
  port_.setReadBufferSize(0);
  // The gap that the rest has made is none of the line's; but one within it is not seen.
  lastBytes_ = scheduler_.Now();
  unbroken_ = kUnbrokenBytes - kGoesOnBytes;
}

void SerialComm::TakeBytes() {
  const QByteArray bytes = port_.readAll();
  if (bytes.isEmpty()) return;
  failuresInARow_ = 0;
  const double now = scheduler_.Now();
  if (now - std::exchange(lastBytes_, now) > kGapSeconds) unbroken_ = 0;
  unbroken_ = std::min(unbroken_ + static_cast<int>(bytes.size()), kUnbrokenBytes);
  Arrived(
      std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::size_t>(bytes.size())));
}

void SerialComm::PortFailed() {
  EndRest();
  // Reading also wakes a port that has gone deaf over an error that was none, such as a peer that has stopped
  // reading, or bytes announced twice.
  TakeBytes();
  if (!HungUp() && ++failuresInARow_ < kMostFailuresInARow) return;
  // A dead port left open fails without end. Closing it here is safe; telling the program is not, since its
  // handlers must not run from inside the port's signal.
  port_.close();
  LineLostLater();
}

bool SerialComm::HungUp() const {
#ifdef Q_OS_UNIX
  pollfd device{port_.handle(), 0, 0};
  return poll(&device, 1, 0) > 0 && (device.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
#else
  return !StateOf(port_);
#endif
}

}  // namespace kavr6
