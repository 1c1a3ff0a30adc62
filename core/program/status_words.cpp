#include "core/program/status_words.h"

#include <array>

#include "core/drive_models.h"

namespace kavr6 {
namespace {

using Presence = DriveRecord::Presence;

std::string PortName(int number) { return "COM" + std::to_string(number); }

std::string At(const std::string& words, int minute) { return words + " " + ShownMinute(minute); }

/// A name that holds together: where the room is short, what stands behind a comma and a blank is left out.
std::string Unbroken(const std::string& name) {
  std::string whole;
  for (const char c : name)
    whole += c == ' ' && whole.ends_with(',') ? std::string("\u00A0") : std::string(1, c);
  return whole;
}

/// Of a closed port whose device stands there, free as far as can be seen, and that has refused to open, or
/// was lost, with this error.
StatusCell RefusedCell(int refusal) {
  switch (refusal) {
    case 0:
    case MSComm::kNotThere:
      return {" closed", "LineClosed"};
    case MSComm::kInUse:
      return {" in use", "LineTaken"};
    case MSComm::kNoPermission:
      return {" no permission", "LineTaken"};
    default:
      return {" does not open", "LineClosed"};
  }
}

StatusCell ClosedCell(PortLook::State look, int refusal) {
  using enum PortLook::State;
  switch (look) {
    case InUse:
      return {" in use", "LineTaken"};
    case NotAllowed:
      return {" no permission", "LineTaken"};
    case There:
      return RefusedCell(refusal);
    default:
      return {" not there", "LineClosed"};
  }
}

/// Where another model is chosen than the one that answers, or this one has moved the list.
std::string ListWords(const DriveState& state) {
  const int chosen = state.ModelIndex;
  if (chosen < 0 || state.Drive.ModelCode() == 0) return "";
  const DriveModel& model = kDriveModels.at(static_cast<std::size_t>(chosen));
  if (model.code != state.Drive.ModelCode()) return ", " + std::string(model.name) + " is chosen";
  return state.Drive.ListSetByDrive() ? ", has set the list" : "";
}

std::string AnswerWords(const DriveState& state) {
  const DriveRecord& drive = state.Drive;
  // Another may have taken the place of the one that is known.
  const std::string who = drive.Sure() ? drive.Model() : "A drive";
  std::string words = who + (drive.AlarmStands() ? " tells of an alarm" : " answers");
  if (drive.Sure()) words += ListWords(state) + ", firmware " + drive.Firmware();
  if (drive.AlarmStands()) words += At(", alarm", drive.AlarmAt());
  return At(words + ", heard", drive.HeardAt());
}

/// What was known of the drive before it was no longer heard.
std::string LastHeard(const DriveState& state) {
  const DriveRecord& drive = state.Drive;
  if (!drive.Known()) return "";
  const std::string where =
      drive.HeardOnPort() == state.CommNumber ? "" : " on " + PortName(drive.HeardOnPort());
  return At(", " + drive.Model() + " heard", drive.HeardAt()) + where;
}

}  // namespace

StatusCell LineCell(const MSComm& comm, const DriveState& state) {
  const int number = state.CommNumber;
  const std::string port = PortName(number);
  const auto [device, look] = comm.Look(number);
  StatusCell cell =
      comm.PortOpen() ? StatusCell{" open", "LineOpen"} : ClosedCell(look, comm.Refusal(number));
  cell.words.insert(0, port);
  if (cell.picture == "LineClosed") return cell;  // what has the number now may be another device
  if (!device.empty() && device != port) cell.words += ", " + Unbroken(device);
  return cell;
}

StatusCell DriveCell(const DriveState& state, bool portOpen) {
  const DriveRecord& drive = state.Drive;
  const std::string picture = LampPicture(drive);
  switch (drive.State()) {
    case Presence::NeverHeard:
      return {"No drive heard yet", picture};
    case Presence::Answers:
      return {AnswerWords(state), picture};
    case Presence::Silent:
      return {At("No answer since", drive.Since()) +
                  (drive.LeftInText() ? ", open and close the Status Monitor" : "") +
                  (drive.AlarmStands() ? At(", alarm", drive.AlarmAt()) : "") + LastHeard(state),
              picture};
    case Presence::LineLost:
      return {At(portOpen ? "Nothing heard since" : "Line lost at", drive.Since()) + LastHeard(state),
              picture};
    case Presence::AnotherPort:
      break;
  }
  return {"Another port, nothing heard on " + PortName(state.CommNumber) + " yet" + LastHeard(state),
          picture};
}

StatusCell InDriveCell(InDrive fact) {
  static const std::array<StatusCell, 3> kCells{
      {{"In drive: not known", "FactUnknown"}, {"In drive: no", "FactNo"}, {"In drive: yes", "FactYes"}}};
  return kCells.at(static_cast<std::size_t>(fact));
}

StatusCell InFileCell(InFile fact) {
  static const std::array<StatusCell, 5> kCells{{{"No file yet", "FactNone"},
                                                 {"In file: not known", "FactUnknown"},
                                                 {"In file: no", "FactNo"},
                                                 {"In file: yes", "FactYes"},
                                                 {"File changed by another program", "FactForeign"}}};
  return kCells.at(static_cast<std::size_t>(fact));
}

std::string LampPicture(const DriveRecord& drive) {
  if (drive.AlarmStands()) return "DriveAlarm";
  return drive.State() == Presence::Answers ? "DriveAnswers" : "DriveUnknown";
}

}  // namespace kavr6
