#include "command_line/session.h"

#include "config_file/settings_file.h"
#include "core/alarms.h"
#include "core/drive_models.h"
#include "core/numbers.h"
#include "link/wire.h"
#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr const char* kLineSettings = "9600,N,8,1";
constexpr double kMessageTime = 0.005;  // seconds; three bytes take 3.1 ms
constexpr double kLateAnswers = 1.0;    // seconds; no answer is awaited for longer

/// A load inertia that stands as it does at every start has not been set by anybody.
bool InertiaIsAtStart(const Settings& settings) {
  Settings start;
  InitVars(start);
  return settings.InertiaIsRatio == start.InertiaIsRatio && settings.InertiaRatio == start.InertiaRatio;
}

}  // namespace

DriveSession::DriveSession(const CommandMachine& machine, const CommandOptions& options)
    : boxes(machine.messages),
      line{state, machine.comm, machine.pump, boxes},
      motorTable(table_),
      limits(settings, state, motorTable),
      receive(line),
      identity(line),
      transfers({line, settings, identity, motorTable, limits}),
      machine_(machine),
      options_(options),
      table_(machine.motors, PathOf(options.motors)) {
  if (options.acceptUnsetInertia) boxes.Accept(kInertiaQuestion);
  state.AppVersion = VersionText(machine.version);
  InitVars(settings);
  motorTable.Open(machine.directory);
  motorTable.MoveFirst();
  const std::string why = motorTable.LeftOut();
  if (!why.empty() && CommandTakes(options.command, "--motors"))
    boxes.Tell(std::string(kOwnMotorsLeftOut) + ": " + why);
  transfers.AddMotorIfMissing = [this](const MotorRecord& motor) { TakeMotor(motor); };
  receive.ServoError152 = [this](int word) { TellAlarms(word); };
  // What the main screen does when a model is selected.
  state.ModelIndex.Changed.Set([this] {
    ShowModeName(state, settings);
    limits.LimitContCurrent();
    limits.LimitIdleCurrent();
  });
}

const MotorRow& DriveSession::TakeMotor(const MotorRecord& motor) {
  if (!motor.MotorName.empty() && !motorTable.Seek(motor.MotorName)) {
    motorTable.Append(motor);
    motorTable.Seek(motor.MotorName);
  }
  return motorTable.Row();
}

void DriveSession::TellAlarms(int word) {
  std::string alarms;
  for (std::size_t bit = 0; bit < kAlarms.size(); ++bit)
    if ((word >> bit & 1) != 0 && !kAlarms[bit].fault.empty())
      alarms += (alarms.empty() ? "" : ", ") + std::string(kAlarms[bit].fault);
  if (!alarms.empty()) boxes.Tell("The drive tells an alarm: " + alarms);
}

ExitCode DriveSession::OpenPort(const std::string& port, int deviceNumber) {
  const int number = PortNumber(port);
  state.CommNumber = number == 0 ? deviceNumber : number;
  state.CommIndex = state.CommNumber - 1;
  if (number == 0) machine_.UseDevice(state.CommNumber, port);
  try {
    machine_.comm.SetSettings(kLineSettings);
    machine_.comm.SetCommPort(state.CommNumber);
    machine_.comm.SetPortOpen(true);
  } catch (const RuntimeError& error) {
    boxes.Tell(port + ": " + error.what());
    return ExitCode::NoPort;
  }
  machine_.comm.SetRThreshold(1);
  machine_.comm.SetParityReplace("");
  // Of a message that is under way only the end comes, which must not become the beginning of an answer.
  Delay(line.pump, kMessageTime);
  receive.Clear();
  return ExitCode::Done;
}

ExitCode DriveSession::Identify() {
  return AskTwice([this] { return !identity.CheckDrive().empty(); });
}

ExitCode DriveSession::AskTwice(const std::function<bool()>& exchange) {
  if (exchange()) return ExitCode::Done;
  if (!StrangerHasAnswered()) return ExitCode::NoAnswer;
  // It may have been the late answer to somebody who was interrupted.
  Delay(line.pump, kLateAnswers);
  state.DspRev = 0;
  if (exchange()) return ExitCode::Done;
  if (StrangerHasAnswered())
    boxes.Tell("What answers is no drive of this family; its model code is " +
               std::to_string(state.DriveModelCode));
  return ExitCode::NoAnswer;
}

bool DriveSession::StrangerHasAnswered() const {
  return state.DspRev != 0 && ModelIndex(state.DriveModelCode) < 0;
}

ExitCode DriveSession::CheckFile() {
  const double current = settings.RunCurrent;
  const Long idle = settings.IdlePercent;
  if (const ExitCode code = Identify(); code != ExitCode::Done) return code;
  limits.LimitContCurrent();
  limits.LimitIdleCurrent();
  if (settings.RunCurrent == current && settings.IdlePercent == idle) return ExitCode::Done;
  boxes.Tell("The motor on this drive, a " + ModelName() + ", takes " + ShownNumber(settings.RunCurrent) +
             " A and " + NumberText(settings.IdlePercent) + " % of it when idle; the file has " +
             ShownNumber(current) + " A and " + NumberText(idle) + " %");
  return ExitCode::OverLimit;
}

ExitCode DriveSession::ReadFile(const std::string& name) {
  try {
    const FileReadActions actions{.SelectModel = [&](Integer row) { state.ModelIndex = row; },
                                  .SelectPort =
                                      [&](Integer row) {
                                        if (!machine_.comm.PortOpen()) state.CommIndex = row;
                                      }};
    TakeMotor(ReadSettingsFile(machine_.files.Read(name), settings, InTheirLists(actions)));
  } catch (const RuntimeError& error) {
    boxes.Tell(name + " cannot be read: " + error.what());
    return ExitCode::BadFile;
  }
  ShowModeName(state, settings);
  state.TitleName = state.FileName = name;
  state.InertiaSet = !InertiaIsAtStart(settings);
  return ExitCode::Done;
}

ExitCode DriveSession::WriteFile(const std::string& name) {
  try {
    machine_.files.Replace(name, WriteSettingsFile({.version = state.AppVersion,
                                                    .model = ToInteger(state.ModelIndex),
                                                    .port = ToInteger(state.CommIndex)},
                                                   settings, RecordOf(motorTable.Row())));
  } catch (const RuntimeError& error) {
    boxes.Tell(name + " cannot be written: " + error.what());
    return ExitCode::BadFile;
  }
  return ExitCode::Done;
}

ParameterImage DriveSession::BuildImage() const { return WholeImage(settings, motorTable.Row()); }

std::optional<Bytes> DriveSession::FetchImage() {
  LineHold hold(line, 0);
  line.comm.Output(kUpload);
  if (hold.Await(static_cast<int>(kImageSize), ReplyLimit(kUpload))) {
    Bytes image = hold.Read();
    if (ChecksumHolds(image)) return image;
  }
  boxes.Tell("The settings have not come back whole from the drive");
  return {};
}

std::string DriveSession::ModelName() const {
  const int index = state.ModelIndex;
  return index < 0 ? "" : std::string(kDriveModels[static_cast<std::size_t>(index)].name);
}

}  // namespace kavr6
