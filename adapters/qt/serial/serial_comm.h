// The serial control on a real port.
#pragma once

#include <QSerialPort>
#include <filesystem>
#include <span>
#include <string>

#include "adapters/qt/serial/port_names.h"
#include "platform/mscomm.h"

namespace kavr6 {

/// COM1 to COM8 as PortNames assigns them. Needs an application object and an event loop. A device opened by
/// this program or, as far as the system can tell, by another one cannot be opened a second time under any
/// name.
class SerialComm : public MSComm {
 public:
  /// `links`: the folders with the links that pin a device to a port number.
  SerialComm(Scheduler& scheduler, LinkFolders links);
  ~SerialComm() override { Release(); }

  /// Hands what was written to the system and lets go of the device and its lock file, telling nobody. For
  /// the end of a process that runs no destructors; the object is of no use afterwards.
  void Release();

  /// From now on this device stands behind that port number.
  void UseDevice(int number, const std::string& device) { names_.Use(number, device); }
  std::string DeviceName(int number) const override { return names_.Device(number); }
  PortLook Look(int number) const override;
  bool DeviceBack(int number) const override;
  std::unique_ptr<DeviceWatch> WatchDevices(DeviceNews news, std::function<void()> told) override;

 protected:
  void OpenDevice(int number) override;
  void CloseDevice() override;
  void Send(std::span<const std::uint8_t> bytes) override;
  void Block(const std::function<bool()>& done, double limit) override;

 private:
  void ReadyRead();
  void TakeBytes();
  void Rest();
  void EndRest();
  void PortFailed();
  bool HungUp() const;

  Scheduler& scheduler_;
  PortNames names_;
  QSerialPort port_;
  QString opened_;          // the device that was opened last, without links
  std::string openedBy_;    // the mark of the link that led to it
  int failuresInARow_ = 0;  // since the opening, without a byte in between
  int unbroken_ = 0;        // bytes that have come in without a gap
  double lastBytes_ = 0.0;
  Scheduler::TaskId rest_ = 0;  // 0: none
};

}  // namespace kavr6
