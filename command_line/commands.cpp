#include "command_line/commands.h"

#include <algorithm>
#include <array>

#include "command_line/compare_command.h"
#include "command_line/json.h"
#include "command_line/report_command.h"
#include "core/alarms.h"
#include "image/image_layout.h"
#include "platform/runtime_error.h"
#include "tools/alarm_history.h"

namespace kavr6 {
namespace {

constexpr const char* kNotChanged = "The drive has not been changed.";
constexpr const char* kHalfSent =
    "The settings had not all been sent, or the drive had not confirmed them: it may hold its old ones or "
    "these.  Write them again.";
constexpr const char* kNotVerified = "The drive has confirmed the settings; they have not been read back.";

/// One command under way.
struct Task {
  const CommandMachine& machine;
  const CommandOptions& options;
  DriveSession& session;
};

ExitCode CodeOf(TransferEnd end) {
  switch (end) {
    case TransferEnd::Done:
      return ExitCode::Done;
    case TransferEnd::Declined:
      return ExitCode::BadUse;
    case TransferEnd::NoPort:
      return ExitCode::NoPort;
    case TransferEnd::OverLimit:
      return ExitCode::OverLimit;
    case TransferEnd::BadSum:
    case TransferEnd::Unknown:
      return ExitCode::Refused;
    default:
      return ExitCode::NoAnswer;
  }
}

std::string HexByte(Byte byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return {kDigits[byte / 16U], kDigits[byte % 16U]};
}

std::string HexOf(std::span<const Byte> image, const ImageField& field) {
  std::string text;
  for (const Byte byte :
       image.subspan(static_cast<std::size_t>(field.position), static_cast<std::size_t>(field.width)))
    text += (text.empty() ? "" : " ") + HexByte(byte);
  return text;
}

void PrintDrive(const Task& task, const std::string& done) {
  const DriveSession& session = task.session;
  const std::string device = task.machine.comm.DeviceName(session.state.CommNumber);
  if (task.options.json) {
    task.machine.out << JsonObject({{"result", JsonText(done)},
                                    {"model", JsonText(session.ModelName())},
                                    {"code", std::to_string(session.state.DriveModelCode)},
                                    {"firmware", JsonText(session.state.DriveVersion.Get())},
                                    {"port", JsonText(task.options.port)},
                                    {"device", JsonText(device)}})
                     << "\n";
    return;
  }
  task.machine.out << (done == "identified" ? "" : done + ": ") << session.ModelName() << ", firmware "
                   << session.state.DriveVersion.Get() << ", on " << task.options.port << "\n";
}

ExitCode Identify(const Task& task) {
  if (const ExitCode code = task.session.Identify(); code != ExitCode::Done) return code;
  PrintDrive(task, "identified");
  return ExitCode::Done;
}

ExitCode Read(const Task& task) {
  TransferEnd end = TransferEnd::NoDrive;
  const ExitCode answered = task.session.AskTwice([&] {
    end = task.session.transfers.UploadClick();
    return end != TransferEnd::NoDrive;
  });
  if (answered != ExitCode::Done) return answered;
  if (end == TransferEnd::BadSum) return ExitCode::NoAnswer;  // nothing whole has come
  if (end != TransferEnd::Done) return CodeOf(end);
  if (const ExitCode code = task.session.WriteFile(task.options.files[0]); code != ExitCode::Done)
    return code;
  PrintDrive(task, "read");
  return ExitCode::Done;
}

/// Whether the drive holds what the settings make; each field that differs is printed.
ExitCode CompareWithDrive(const Task& task, const std::string& same) {
  const ParameterImage wanted = task.session.BuildImage();
  const std::optional<Bytes> held = task.session.FetchImage();
  if (!held) return ExitCode::NoAnswer;
  std::vector<std::string> rows;
  for (const ImageField& field : ImageLayout()) {
    const std::string here = HexOf(wanted, field);
    const std::string there = HexOf(*held, field);
    if (here == there || field.write == nullptr) continue;
    if (task.options.json) {
      rows.push_back(JsonObject({{"field", JsonText(field.name)},
                                 {"position", std::to_string(field.position)},
                                 {"file", JsonText(here)},
                                 {"drive", JsonText(there)}}));
    } else {
      task.machine.out << field.name << ": " << here << " in the file, " << there << " in the drive\n";
    }
  }
  const bool differs = !std::ranges::equal(wanted, *held);
  if (!differs) {
    PrintDrive(task, same);
  } else if (task.options.json) {
    task.machine.out << JsonObject({{"result", JsonText("differs")}, {"fields", JsonList(rows)}}) << "\n";
  }
  return differs ? ExitCode::Differs : ExitCode::Done;
}

ExitCode Write(const Task& task) {
  DriveSession& session = task.session;
  if (const ExitCode code = session.ReadFile(task.options.files[0]); code != ExitCode::Done) return code;
  if (const ExitCode code = session.CheckFile(); code != ExitCode::Done) return code;
  try {
    session.BuildImage();  // before the drive is told to expect one
  } catch (const RuntimeError& error) {
    session.boxes.Tell(task.options.files[0] + " cannot be sent: " + error.what());
    return ExitCode::BadFile;
  }
  session.state.Progress.Changed.Set([&session] { session.Interruption = kHalfSent; });
  if (const TransferEnd end = session.transfers.DownloadClick(); end != TransferEnd::Done) {
    if (end == TransferEnd::Unknown) session.boxes.Tell("The drive's answer to the settings is not known");
    return CodeOf(end);
  }
  session.state.Progress.Changed.Replace(nullptr);
  session.Interruption = kNotVerified;
  if (task.options.verify) return CompareWithDrive(task, "written and read back");
  PrintDrive(task, "written");
  return ExitCode::Done;
}

ExitCode Verify(const Task& task) {
  if (const ExitCode code = task.session.ReadFile(task.options.files[0]); code != ExitCode::Done) return code;
  if (const ExitCode code = task.session.CheckFile(); code != ExitCode::Done) return code;
  return CompareWithDrive(task, "verified");
}

ExitCode Compare(const Task& task) {
  task.session.Interruption = kNotChanged;
  return CompareCommand(task.machine, task.options, task.session);
}

ExitCode Report(const Task& task) { return ReportCommand(task.machine, task.options, task.session); }

ExitCode History(const Task& task) {
  const std::optional<Bytes> data = GetAlarmHistory(task.session.line);
  if (!data) return ExitCode::NoAnswer;
  std::vector<std::string> codes;
  for (std::size_t code = 0; code < AlarmHistory::kCodes; ++code) {
    const Byte high = (*data)[2 * code];
    const Byte low = (*data)[2 * code + 1];
    std::vector<std::string> alarms;
    std::string words;
    for (std::size_t bit = 0; bit < kAlarms.size(); ++bit) {
      if (((high * 256 + low) >> bit & 1) == 0) continue;
      alarms.push_back(JsonText(kAlarms[bit].history));
      words += (words.empty() ? "" : ", ") + std::string(kAlarms[bit].history);
    }
    codes.push_back(
        JsonObject({{"code", JsonText(HexByte(high) + HexByte(low))}, {"alarms", JsonList(alarms)}}));
    if (!task.options.json)
      task.machine.out << code + 1 << "  " << HexByte(high) << HexByte(low) << "  "
                       << (words.empty() ? "no alarm" : words) << "\n";
  }
  if (task.options.json)
    task.machine.out << JsonObject({{"result", JsonText("history")}, {"codes", JsonList(codes)}}) << "\n";
  return ExitCode::Done;
}

ExitCode Ports(const CommandMachine& machine, const CommandOptions& options) {
  std::vector<std::string> rows;
  for (int number = 1; number <= kPortCount; ++number) {
    const std::string device = machine.comm.DeviceName(number);
    if (device.empty()) continue;
    const std::string port = "COM" + std::to_string(number);
    rows.push_back(JsonObject({{"port", JsonText(port)}, {"device", JsonText(device)}}));
    if (!options.json) machine.out << port << "  " << device << "\n";
  }
  if (options.json)
    machine.out << JsonObject({{"result", JsonText("ports")}, {"ports", JsonList(rows)}}) << "\n";
  if (rows.empty()) ConsoleBoxes(machine.messages).Tell("This computer has no serial port");
  return rows.empty() ? ExitCode::NoPort : ExitCode::Done;
}

struct Work {
  std::string_view command;
  ExitCode (*run)(const Task& task);
  bool needsDrive;
};
constexpr std::array kWorks{Work{"identify", Identify, true}, Work{"read", Read, true},
                            Work{"write", Write, true},       Work{"verify", Verify, true},
                            Work{"compare", Compare, false},  Work{"report", Report, false},
                            Work{"history", History, true}};

ExitCode RunWork(const CommandMachine& machine, const CommandOptions& options,
                 const std::function<void(DriveSession*)>& onSession) {
  const Work& work = *std::ranges::find(kWorks, options.command, &Work::command);
  DriveSession session(machine, options);
  struct Lent {
    const std::function<void(DriveSession*)>& to;
    ~Lent() {
      if (to) to(nullptr);
    }
  } const lent{onSession};
  if (onSession) onSession(&session);
  if (work.needsDrive) session.Interruption = kNotChanged;
  const ExitCode code = work.needsDrive ? session.OpenPort() : ExitCode::Done;
  return code == ExitCode::Done ? work.run({machine, options, session}) : code;
}

}  // namespace

ExitCode RunCommand(const CommandMachine& machine, const CommandOptions& options,
                    const std::function<void(DriveSession*)>& onSession) {
  ExitCode code = ExitCode::BadFile;
  try {
    code = options.command == "ports" ? Ports(machine, options) : RunWork(machine, options, onSession);
  } catch (const RuntimeError& error) {
    // What a file holds need not fit an image, and the motor table need not be there.
    ConsoleBoxes(machine.messages).Tell(error.what());
  }
  if (machine.out.flush()) return code;
  ConsoleBoxes(machine.messages).Tell("The result cannot be printed");
  return code == ExitCode::Done ? ExitCode::BadFile : code;
}

}  // namespace kavr6
