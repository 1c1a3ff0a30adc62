// The serial control: one port, its receive buffer and its receive notification.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/event.h"
#include "platform/scheduler.h"

namespace kavr6 {

using Bytes = std::vector<std::uint8_t>;

/// What can be seen of a port without opening it.
struct PortLook {
  enum class State { NoDevice, NotThere, There, InUse, NotAllowed, Open };
  std::string device = {};  ///< what a person calls it, such as "/dev/ttyUSB0"; empty without one
  State state = State::NoDevice;
};

/// Somebody is told of devices for as long as it lives. It may be destroyed while it tells.
class DeviceWatch {
 public:
  DeviceWatch() = default;
  DeviceWatch(const DeviceWatch&) = delete;
  DeviceWatch& operator=(const DeviceWatch&) = delete;
  virtual ~DeviceWatch() = default;
};

/// What is told: that devices come and go and who is allowed to use them; with Users, who does use them too.
enum class DeviceNews { Devices, Users };

/// A serial port in binary mode.
///
/// Arriving bytes wait in a buffer. When an arrival brings their number to RThreshold or above, the receive
/// notification is queued; it is delivered from the event pump, at any depth of nesting, if by then the
/// threshold still is not 0 and as many bytes still wait. A threshold of 0 turns it off. Raising or lowering
/// the threshold notifies of nothing by itself.
class MSComm {
 public:
  /// The event code of received data; the only one that is ever raised.
  static constexpr int kEventReceive = 2;

  explicit MSComm(Scheduler& scheduler) : scheduler_(scheduler) {}
  MSComm(const MSComm&) = delete;
  MSComm& operator=(const MSComm&) = delete;
  virtual ~MSComm();

  int CommPort() const { return commPort_; }
  /// 1 to 8, with the port closed; else RuntimeError.
  void SetCommPort(int number);
  const std::string& Settings() const { return settings_; }
  void SetSettings(const std::string& settings) { settings_ = settings; }
  bool PortOpen() const { return open_; }
  /// How often the port has been opened so far.
  int Openings() const { return openings_; }
  /// Opening a port that cannot be opened is a RuntimeError whose text is a plain sentence without its full
  /// stop. Opening and closing empty the buffer; closing keeps RThreshold and ParityReplace.
  void SetPortOpen(bool open);
  /// Number of the error with which this port, 1 to 8, was last refused, or was lost; 0 since it has opened.
  int Refusal(int number) const { return refusals_[static_cast<std::size_t>(number)]; }
  static constexpr int kNoPermission = 70;
  static constexpr int kNotThere = 8002;
  static constexpr int kInUse = 8005;
  int RThreshold() const { return threshold_; }
  void SetRThreshold(int count) { threshold_ = count; }
  /// Empty: bytes with parity errors are delivered unchanged.
  void SetParityReplace(const std::string& replacement) { parityReplace_ = replacement; }

  /// Queues bytes for sending and returns at once. With the port closed nothing is sent: a cable may be
  /// pulled between any two statements of an exchange, whose wait then runs into its limit.
  void Output(std::span<const std::uint8_t> bytes);
  void Output(std::string_view text);
  /// Takes all waiting bytes.
  Bytes Input();
  /// Takes the oldest waiting bytes, so many at most.
  Bytes Input(int most);
  int InBufferCount() const { return static_cast<int>(buffer_.size()); }
  /// Blocks the program until `count` bytes wait in the buffer, `limit` seconds (finite) have passed or the
  /// device is gone; with the port closed it returns at once. Bytes come in meanwhile, and nothing else
  /// happens: clicks, keys, timers, tasks, the receive notification and the news of a lost line follow with
  /// the next pump, late. Returns whether `count` bytes wait.
  bool WaitBlocking(int count, double limit);

  Event<int> OnComm;
  /// The port has been opened, closed, lost, or refused.
  Event<> StateChanged;
  /// What a person calls the device behind port `number`, such as "/dev/ttyUSB0"; empty without one.
  virtual std::string DeviceName(int number) const = 0;
  /// The device of the open port has gone, and the port has been closed for that.
  Event<> Lost;
  // What follows is as on a machine that tells nothing of its devices, unless the implementation knows more.

  /// The state of port `number` at this moment. No port is opened for it.
  virtual PortLook Look(int number) const { return {.device = DeviceName(number)}; }
  /// Whether the device that was last open under port `number` stands there and can be tried; one that has
  /// only moved up to that number is another. No port is opened for it.
  virtual bool DeviceBack(int /*number*/) const { return false; }
  /// Calls `told` from the event pump whenever something may have changed; rather too often than too seldom,
  /// never when nothing happens, and at no cost in between.
  virtual std::unique_ptr<DeviceWatch> WatchDevices(
      DeviceNews /*news*/,
      // NOLINTNEXTLINE(performance-unnecessary-value-param): those that watch keep it
      std::function<void()> /*told*/) {
    return nullptr;
  }

 protected:
  virtual void OpenDevice(int number) = 0;
  virtual void CloseDevice() = 0;
  virtual void Send(std::span<const std::uint8_t> bytes) = 0;
  /// Takes in bytes, and lets nothing else happen, until `done` holds or `limit` seconds have passed. Called
  /// with the port open.
  virtual void Block(const std::function<bool()>& done, double limit) = 0;
  /// For the implementation: bytes have come in.
  void Arrived(std::span<const std::uint8_t> bytes);
  /// For the implementation: the device is gone. Closes the port, quietly; while the program is blocked,
  /// afterwards.
  void LineLost();
  /// The same from the event pump, for where the program's handlers must not run.
  void LineLostLater();

 private:
  void Notify();

  Scheduler& scheduler_;
  int commPort_ = 1;
  std::string settings_;
  std::string parityReplace_;
  std::array<int, 9> refusals_{};
  int threshold_ = 0;
  bool open_ = false;
  int openings_ = 0;
  Bytes buffer_;
  bool notificationQueued_ = false;
  Scheduler::TaskId notification_ = 0;
  bool blocked_ = false;
  Scheduler::TaskId lossReport_ = 0;  // 0: none is under way
};

}  // namespace kavr6
