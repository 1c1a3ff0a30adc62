// The text that describes a serial line, such as "9600,N,8,1".
#pragma once

#include <QSerialPort>
#include <string>

namespace kavr6 {

/// Sets up a port, open or not, from "baud,parity,data bits,stop bits": parity N, E, O, M or S in either
/// case, 5 to 8 data bits, 1, 1.5 or 2 stop bits. There is no flow control. A text of another form, or a
/// speed that the open port does not know, is a RuntimeError.
void ApplyLineSettings(QSerialPort& port, const std::string& settings);

}  // namespace kavr6
