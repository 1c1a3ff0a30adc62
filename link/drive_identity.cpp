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

std::string DriveIdentity::TakeIdentity() {
  std::string reply = state_.GlobalBuffer.substr(0, kIdentitySize);
  state_.GlobalBuffer.erase(0, kIdentitySize);
  state_.DspRev = RevisionOf(static_cast<unsigned char>(reply[0]));
  state_.DriveModelCode = static_cast<unsigned char>(reply[1]);
  state_.Drive.Identified(state_.DspRev, state_.DriveModelCode);
  return reply;
}

bool DriveIdentity::DriveStillThere() {
  state_.CommandActive = true;
  line_.comm.Output(kIdentify);
  bool known = false;
  if (AwaitReply(kIdentitySize, kFirstLookLimit)) {
    TakeIdentity();
    known = std::any_of(kEarlierFamilies.begin(), kEarlierFamilies.end(), [this](const CodeRange& codes) {
      return state_.DriveModelCode >= codes.first && state_.DriveModelCode <= codes.last;
    });
  } else {
    TellNoAnswer(line_);
  }
  state_.CommandActive = false;
  return known;
}

std::string DriveIdentity::AskIdentity(const std::string& boxTitle) {
  state_.CommandActive = true;
  PauseBeforeCommand(line_);
  state_.GlobalBuffer.clear();
  line_.comm.Output(kIdentify);
  const bool answered = AwaitReply(kIdentitySize, ReplyLimit(kIdentify));
  state_.CommandActive = false;
  if (answered) return TakeIdentity();
  TellNoAnswer(line_);
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
  AskWord(line_.comm, kSubRevision);
  if (!AwaitReply(kHexSize, ReplyLimit(kReadWord, kSubRevision))) {
    state_.GlobalBuffer.clear();
    return {};
  }
  const unsigned code = HexValue(state_.GlobalBuffer.substr(2, 2));
  state_.MinorRev = CharacterOf(static_cast<std::uint8_t>(code));
  state_.Drive.LetterIs(state_.MinorRev);
  state_.GlobalBuffer.erase(0, kHexSize);
  return " " + state_.MinorRev;
}

Long DriveIdentity::GetServoStatus() {
  if (NoCommPort(line_.comm)) return 0;
  state_.CommandActive = true;
  state_.GlobalBuffer.clear();
  AskWord(line_.comm, kStatusWord);
  Long status = -1;
  if (AwaitReply(kHexSize, ReplyLimit(kReadWord, kStatusWord))) {
    status = static_cast<Integer>(HexValue(state_.GlobalBuffer.substr(0, kHexSize)));
    state_.GlobalBuffer.clear();
    state_.Drive.Heard();
  } else {
    TellNoAnswer(line_);
  }
  state_.CommandActive = false;
  return status;
}

}  // namespace kavr6
