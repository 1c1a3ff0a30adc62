#include "adapters/qt/serial/line_settings.h"

#include <QMap>
#include <QStringList>

#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

const QMap<QString, QSerialPort::Parity>& Parities() {
  static const QMap<QString, QSerialPort::Parity> table{{"N", QSerialPort::NoParity},
                                                        {"E", QSerialPort::EvenParity},
                                                        {"O", QSerialPort::OddParity},
                                                        {"M", QSerialPort::MarkParity},
                                                        {"S", QSerialPort::SpaceParity}};
  return table;
}

const QMap<QString, QSerialPort::DataBits>& DataBits() {
  static const QMap<QString, QSerialPort::DataBits> table{{"5", QSerialPort::Data5},
                                                          {"6", QSerialPort::Data6},
                                                          {"7", QSerialPort::Data7},
                                                          {"8", QSerialPort::Data8}};
  return table;
}

const QMap<QString, QSerialPort::StopBits>& StopBits() {
  static const QMap<QString, QSerialPort::StopBits> table{
      {"1", QSerialPort::OneStop}, {"1.5", QSerialPort::OneAndHalfStop}, {"2", QSerialPort::TwoStop}};
  return table;
}

}  // namespace

void ApplyLineSettings(QSerialPort& port, const std::string& settings) {
  const QStringList parts = QString::fromStdString(settings).toUpper().split(',');
  const int baud = parts[0].toInt();
  const bool known = parts.size() == 4 && baud > 0 && Parities().contains(parts[1]) &&
                     DataBits().contains(parts[2]) && StopBits().contains(parts[3]);
  const bool applied = known && port.setBaudRate(baud) && port.setParity(Parities()[parts[1]]) &&
                       port.setDataBits(DataBits()[parts[2]]) && port.setStopBits(StopBits()[parts[3]]) &&
                       port.setFlowControl(QSerialPort::NoFlowControl);
  if (!applied) throw RuntimeError(380, "The line settings \"" + settings + "\" are not possible");
}

}  // namespace kavr6
