// The KAVR6 Configurator: the program on the desktop, the serial port and the motor database of the machine.
#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <clocale>

#include "adapters/qt/base/end_signals.h"
#include "adapters/qt/base/file_store.h"
#include "adapters/qt/base/program_folders.h"
#include "adapters/qt/print/qt_print_job.h"
#include "adapters/qt/serial/serial_comm.h"
#include "adapters/qt/windows/forms.h"
#include "adapters/qt/windows/qt_desktop.h"
#include "adapters/qt/windows/session_end.h"
#include "adapters/qt/windows/style/program_style.h"
#include "adapters/sqlite/motor_tables.h"
#include "core/program/configurator.h"

int main(int argc, char** argv) {
  using namespace kavr6;
  style::UseProgramStyle();  // after it, the application would have made another first
  QApplication application(argc, argv);
  QApplication::setApplicationName(kProgramTitle);
  QApplication::setApplicationVersion(KAVR6_VERSION);
  QApplication::setDesktopFileName("kavr6-configurator");
  // Numbers have a decimal point on every machine.
  std::setlocale(LC_NUMERIC, "C");
  QLocale::setDefault(QLocale::c());

  QtDesktop desktop(BuildWindow);
  const ProgramFolders folders = FindProgramFolders();
  SerialComm comm(desktop, {folders.own / "ports", folders.data / "ports"});
  desktop.AtEnd([&comm] { comm.Release(); });
  MotorTables motors(folders.own, folders.installed);
  DiskFiles files;
  QtPrintJob print([&desktop] { return desktop.BoxParent(); }, desktop.HelpIn(Desktop::kInPrintDialog));
  Configurator configurator({desktop, comm, motors.Both(), files, print});
  // Drawing the icon costs milliseconds; the main screen comes first.
  desktop.CallAfter(0.3, [] { QApplication::setWindowIcon(QIcon(":/artwork/kavr6.svg")); });
  desktop.Post([&configurator] { configurator.Start(); });
  const EndSignals endSignals([&desktop](int) { desktop.EndProgram(0); });
  const SessionEnd sessionEnd(desktop);
  desktop.EndProgram(QApplication::exec());
}
