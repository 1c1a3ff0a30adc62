#include "adapters/qt/serial/open_failure.h"

#include <QFileInfo>

#include "adapters/qt/base/text.h"

namespace kavr6 {

std::string NoPermissionText(const std::string& device, const std::string& group) {
  const std::string refusal = "You have no permission to use " + device;
  if (group.empty()) return refusal + "; the administrator of this computer can give it";
  return refusal + "; join the group \"" + group + "\", then log out and in again";
}

std::string GroupWithAccess(const std::string& file) {
  const QFileInfo info(QString::fromStdString(file));
  return info.permission(QFile::ReadGroup | QFile::WriteGroup) ? info.group().toStdString() : std::string();
}

RuntimeError OpenFailure(const std::string& device, const QSerialPort& port) {
  const QFileInfo file(QString::fromStdString(device));
  const auto missing = [&] { return RuntimeError(8002, "The device " + device + " is not there"); };
  if (file.isAbsolute() && !file.exists()) return missing();
  switch (port.error()) {
    case QSerialPort::DeviceNotFoundError:
      return missing();
    case QSerialPort::PermissionError:
      // A lock, too, is reported as a lack of permission.
      if (file.exists() && !(file.isReadable() && file.isWritable())) {
        return {70, NoPermissionText(device, GroupWithAccess(device))};
      }
      return {8005, device + " is in use by another program"};
    case QSerialPort::ResourceError:
      return {57, "The device " + device + " has been disconnected"};
    default:
      return {57,
              device + " cannot be opened as a serial port: " + FromQt(WithoutFullStop(port.errorString()))};
  }
}

}  // namespace kavr6
