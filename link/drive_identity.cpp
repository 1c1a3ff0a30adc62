#include "link/drive_identity.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "core/drive_models.h"
#include "core/numbers.h"
#include "link/wire.h"

namespace kavr6 {
namespace {

constexpr std::size_t kIdentitySize = 2;
constexpr std::size_t kHexSize = 4;
constexpr std::string_view kHexDigits = "0123456789ABCDEFabcdef";
/// The first look, when the program starts, may be at a drive that is starting too.
constexpr double kFirstLookLimit = 1.0;

/// The drives that the first look at the line knows. The six of this family are not among them: they are
/// identified by the first transfer or by their power-up message.
struct CodeRange {
  int first;
  int last;
};
constexpr std::array<CodeRange, 5> kEarlierFamilies{{{9, 9}, {18, 18}, {30, 40}, {109, 109}, {118, 118}}};

/// Value of the hexadecimal digits that the text begins with; 0 without one.
unsigned HexValue(std::string_view text) {
  unsigned value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value, 16);
  return value;
}

void AskWord(MSComm& comm, std::uint8_t which) {
  Write2Bytes(comm, static_cast<std::uint8_t>(kReadWord.front()), which);
}

}  // namespace

bool DriveIdentity::AwaitReply(std::size_t length, double limit) {
  return line_.pump.PumpEventsUntil([&] { return state_.GlobalBuffer.size() >= length; }, limit);
}

std::string DriveIdentity::TakeIdentity(const Asked& asked) {
  std::string reply = state_.GlobalBuffer.substr(0, kIdentitySize);
  state_.GlobalBuffer.erase(0, kIdentitySize);
  state_.DspRev = RevisionOf(static_cast<unsigned char>(reply[0]));
  state_.DriveModelCode = static_cast<unsigned char>(reply[1]);
  sound_ = asked.Undisturbed();
  if (sound_ && !state_.Drive.Doubtful()) {
    state_.Drive.Identified(state_.DspRev, state_.DriveModelCode);
  } else {
    state_.Drive.Heard();
  }
  return reply;
}

bool DriveIdentity::DriveStillThere() {
  state_.CommandActive = true;
  const Asked asked(line_);
  line_.comm.Output(kIdentify);
  bool known = false;
  if (AwaitReply(kIdentitySize, kFirstLookLimit)) {
    TakeIdentity(asked);
    known = std::any_of(kEarlierFamilies.begin(), kEarlierFamilies.end(), [this](const CodeRange& codes) {
      return state_.DriveModelCode >= codes.first && state_.DriveModelCode <= codes.last;
    });
  } else {
    asked.TellNoAnswer();
  }
  state_.CommandActive = false;
  return known;
}

std::string DriveIdentity::AskIdentity(const std::string& boxTitle) {
  state_.CommandActive = true;
  PauseBeforeCommand(line_);
  state_.GlobalBuffer.clear();
  const Asked asked(line_);
  line_.comm.Output(kIdentify);
  const bool answered = AwaitReply(kIdentitySize, ReplyLimit(kIdentify));
  state_.CommandActive = false;
  if (answered) return TakeIdentity(asked);
  asked.TellNoAnswer();
  line_.boxes.Ask({.text = kDriveNotResponding, .icon = BoxIcon::Question, .title = boxTitle});
  return {};
}

std::string DriveIdentity::CheckDrive() {
  std::string reply = AskIdentity("CheckDrive 0");
  if (reply.empty()) return {};
  const std::string letter = GetMinorRev();
  state_.DriveVersion = ShownRevision(state_.DspRev, letter.empty() ? letter : state_.MinorRev);
  const int model = ModelIndex(state_.DriveModelCode);
  if (model < 0) return {};
  state_.SelectModelOfDrive(model);
  return reply;
}

std::string DriveIdentity::SilentCheckDrive() {
  std::string reply = AskIdentity("Communication Error");
  if (reply.empty() || ModelIndex(state_.DriveModelCode) >= 0) return reply;
  state_.DriveVersion = "";
  return {};
}

std::string DriveIdentity::GetMinorRev() {
  const Asked asked(line_);
  AskWord(line_.comm, kSubRevision);
  const bool come = AwaitReply(kHexSize, ReplyLimit(kReadWord, kSubRevision));
  const std::string& reply = state_.GlobalBuffer;
  // Something else that comes, or comes behind it, shows that those were no answers.
  const bool whole = reply.size() == (come ? kHexSize : 0) &&
                     reply.find_first_not_of(kHexDigits) == std::string::npos && asked.Undisturbed();
  if (come)
    state_.MinorRev = CharacterOf(static_cast<std::uint8_t>(HexValue(std::string_view(reply).substr(2, 2))));
  if (sound_ && whole) TellLetter(come);
  state_.GlobalBuffer.erase(0, come ? kHexSize : std::string::npos);
  return come ? " " + state_.MinorRev : "";
}

// What has been in doubt is the drive's identity by now.
void DriveIdentity::TellLetter(bool told) {
  state_.Drive.Identified(state_.DspRev, state_.DriveModelCode);
  told ? state_.Drive.LetterIs(state_.MinorRev) : state_.Drive.LetterUntold();
}

Long DriveIdentity::GetServoStatus() {
  if (NoCommPort(line_.comm)) return 0;
  state_.CommandActive = true;
  state_.GlobalBuffer.clear();
  const Asked asked(line_);
  AskWord(line_.comm, kStatusWord);
  Long status = -1;
  if (AwaitReply(kHexSize, ReplyLimit(kReadWord, kStatusWord))) {
    status = static_cast<Integer>(HexValue(state_.GlobalBuffer.substr(0, kHexSize)));
    state_.GlobalBuffer.clear();
    state_.Drive.Heard();
  } else {
    asked.TellNoAnswer();
  }
  state_.CommandActive = false;
  return status;
}

}  // namespace kavr6
