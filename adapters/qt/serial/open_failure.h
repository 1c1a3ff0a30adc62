// Why a serial port could not be opened, in words for the person at the screen.
#pragma once

#include <QSerialPort>
#include <string>

#include "platform/runtime_error.h"

namespace kavr6 {

/// The error to raise when `port` has just refused to open; `device` is its full name.
RuntimeError OpenFailure(const std::string& device, const QSerialPort& port);

/// What a person without the right to a device is told. `group`: the group whose members may use it; empty
/// when there is none.
std::string NoPermissionText(const std::string& device, const std::string& group);

/// The group that may read and write a file, or empty.
std::string GroupWithAccess(const std::string& file);

}  // namespace kavr6
