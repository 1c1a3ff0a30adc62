// Settings of a drive from the command line: the logic of the configurator without its windows.
#include <QCoreApplication>
#include <QVersionNumber>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <span>

#include <fcntl.h>
#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

#include "adapters/qt/base/end_signals.h"
#include "adapters/qt/base/file_store.h"
#include "adapters/qt/base/program_folders.h"
#include "adapters/qt/base/qt_event_pump.h"
#include "adapters/qt/serial/serial_comm.h"
#include "adapters/sqlite/motor_tables.h"
#include "apps/kavr6/make_pdf.h"
#include "command_line/commands.h"
#include "platform/path_text.h"

namespace kavr6 {
namespace {

/// Tells how things stand when somebody interrupts the program, lets the port go and ends as an interrupted
/// program does, which a loop of a shell expects.
[[noreturn]] void End(SerialComm& comm, DriveSession* session, int signal) {
  if (session != nullptr) session->boxes.Tell("Interrupted.  " + session->Interruption);
  comm.Release();
#ifdef Q_OS_WIN
  static_cast<void>(signal);
  std::exit(static_cast<int>(STATUS_CONTROL_C_EXIT));
#else
  std::signal(signal, SIG_DFL);
  std::raise(signal);
  std::_Exit(1);
#endif
}

/// A link into the devices counts also when its device has gone.
bool IsDevice(const std::string& path) {
#ifdef Q_OS_WIN
  return path.starts_with(R"(\\.\)");  // as in \\.\COM12
#else
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::path file = PathOf(path);
  const fs::path target = fs::is_symlink(file, error) ? fs::read_symlink(file, error) : file;
  return fs::is_character_file(file, error) || PathText(target).starts_with("/dev/");
#endif
}

int Run(const CommandOptions& options, const ProgramFolders& folders) {
  QtEventPump pump;
  SerialComm comm(pump, {folders.own / "ports", folders.data / "ports"});
  MotorTables motors(folders.own, folders.installed);
  DiskFiles files;
  DriveSession* session = nullptr;
  const EndSignals endSignals([&](int signal) { End(comm, session, signal); });
  const QVersionNumber version = QVersionNumber::fromString(KAVR6_VERSION);
  const CommandMachine machine{
      pump,
      comm,
      options.motors.empty() ? motors.Both() : motors.Common(),
      files,
      std::cout,
      std::cerr,
      folders.data,
      {version.majorVersion(), version.minorVersion(), version.microVersion()},
      [&comm](int number, const std::string& device) { comm.UseDevice(number, device); },
      IsDevice,
      [&](const std::string& document) { return MakePdf(pump, folders.helpers, document); }};
  const ExitCode code = RunCommand(machine, options, [&session](DriveSession* now) { session = now; });
  comm.Release();
  return static_cast<int>(code);
}

#ifdef Q_OS_UNIX
/// A standard stream that is closed must not become one of the descriptors that are opened later.
void HoldStandardStreams() {
  int descriptor = STDIN_FILENO;
  while (descriptor >= STDIN_FILENO && descriptor <= STDERR_FILENO)
    descriptor = open("/dev/null", O_RDONLY | O_CLOEXEC);
  close(descriptor);
}
#else
/// All texts are UTF-8. The console has its own encoding back at the end.
void SetUpConsole() {
  static const UINT before = GetConsoleOutputCP();
  SetConsoleOutputCP(CP_UTF8);
  std::atexit([] { SetConsoleOutputCP(before); });
  std::cerr << std::nounitbuf;  // each message ends with a flush
  for (FILE* const stream : {stdout, stderr}) {
    // Without a buffer the library writes each byte by itself, and on a console it may take bytes for
    // letters.
    std::setvbuf(stream, nullptr, _IOFBF, BUFSIZ);
    if (_isatty(_fileno(stream)) != 0) _setmode(_fileno(stream), _O_BINARY);
  }
}
#endif

/// What stands behind the program's name, in UTF-8.
std::vector<std::string> Words([[maybe_unused]] int argc, [[maybe_unused]] char** argv) {
#ifdef Q_OS_UNIX
  return {argv + 1, argv + argc};  // bytes that are no text may name a file, too
#else
  // What main is handed is in the system's own encoding, where that knows no other for a program.
  std::vector<std::string> words;
  for (const QString& word : QCoreApplication::arguments().sliced(1)) words.push_back(word.toStdString());
  return words;
#endif
}

}  // namespace
}  // namespace kavr6

int main(int argc, char** argv) {
  using namespace kavr6;
#ifdef Q_OS_UNIX
  HoldStandardStreams();
  std::signal(SIGPIPE, SIG_IGN);  // an output that has been closed is told as an error
#else
  SetUpConsole();
#endif
  const QCoreApplication application(argc, argv);
  const std::vector<std::string> words = Words(argc, argv);
  CommandOptions options;
  try {
    options = ParseCommandLine(words);
  } catch (const UsageError& error) {
    std::cerr << "kavr6: " << error.what() << "; see kavr6 --help\n";
    return static_cast<int>(ExitCode::BadUse);
  }
  if (options.help || options.version) {
    std::cout << (options.help ? CommandHelp(options.command) : std::string("kavr6 ") + KAVR6_VERSION + "\n")
              << std::flush;
    if (std::cout) return 0;
    ConsoleBoxes(std::cerr).Tell("This cannot be printed");
    return static_cast<int>(ExitCode::BadFile);
  }
  std::setlocale(LC_NUMERIC, "C");
  return Run(options, FindProgramFolders());
}
