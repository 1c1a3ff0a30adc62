// Everything that settings, a file and a drive need for one command.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <ostream>
#include <string>

#include "command_line/console.h"
#include "command_line/options.h"
#include "command_line/read_only_table.h"
#include "core/drive_state.h"
#include "core/settings.h"
#include "image/transfers.h"
#include "link/drive_identity.h"
#include "link/receive_path.h"
#include "motor/motor_calculations.h"
#include "motor/motor_table.h"
#include "platform/file_store.h"
#include "platform/program_version.h"

namespace kavr6 {

/// What the program needs of the world; all of it outlives the command.
struct CommandMachine {
  EventPump& pump;
  MSComm& comm;
  TableAccess& motors;
  FileStore& files;
  std::ostream& out;                ///< results
  std::ostream& messages;           ///< all else
  std::filesystem::path directory;  ///< of the program; the motor table lies there
  ProgramVersion version;
  /// Puts a device behind a port number.
  std::function<void(int number, const std::string& device)> UseDevice;
  /// Whether that path is one of a device, or was, and not of a file.
  std::function<bool(const std::string& path)> IsDevice;
  /// The PDF file of a document, which is one JSON object: "title", "file" and "remark" stand in the margins,
  /// and each of "lines" has "column", "text", "font", "points" and "bold". RuntimeError where the part that
  /// prints is not installed, or fails.
  std::function<std::string(const std::string& document)> MakePdf;
};

/// The parts below the windows, as the program with windows uses them. Start values in the settings; the
/// motor table is open.
class DriveSession {
 public:
  /// RuntimeError where the motor table cannot be opened.
  DriveSession(const CommandMachine& machine, const CommandOptions& options);
  DriveSession(const DriveSession&) = delete;
  DriveSession& operator=(const DriveSession&) = delete;

  /// What each of these could not do has been told by then.
  /// The port of the options; or another one, which is put behind that number where it is a device.
  ExitCode OpenPort() { return OpenPort(options_.port, 1); }
  ExitCode OpenPort(const std::string& port, int deviceNumber);
  /// Asks the drive who it is.
  ExitCode Identify();
  /// Does an exchange that begins with that question, twice where what has come cannot be a drive's answer.
  ExitCode AskTwice(const std::function<bool()>& exchange);
  /// The same, and whether motor and drive take the currents of the settings.
  ExitCode CheckFile();
  ExitCode ReadFile(const std::string& name);
  ExitCode WriteFile(const std::string& name);
  /// Selects the motor in the table, which keeps a new one until the end; the row that is selected then.
  const MotorRow& TakeMotor(const MotorRecord& motor);
  /// The image that the settings make. RuntimeError for a value that does not fit its field.
  ParameterImage BuildImage() const;
  /// The image that the drive gives, tested; nothing when it does not come whole.
  std::optional<Bytes> FetchImage();

  std::string ModelName() const;
  /// What to tell whoever interrupts the program now; empty while nothing is on its way.
  std::string Interruption;

  DriveState state;
  Settings settings;
  ConsoleBoxes boxes;
  DriveLine line;
  MotorTable motorTable;
  CurrentLimits limits;
  ReceivePath receive;
  DriveIdentity identity;
  Transfers transfers;

 private:
  bool StrangerHasAnswered() const;
  void TellAlarms(int word);

  const CommandMachine& machine_;
  const CommandOptions& options_;
  ReadOnlyTable table_;
};

}  // namespace kavr6
