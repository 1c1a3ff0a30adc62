#include "link/drive_identity.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "core/drive_models.h"
#include "core/numbers.h"
#include "link/comm_ports.h"

namespace kavr6 {
namespace {

constexpr std::size_t kIdentitySize = 2;
constexpr std::size_t kHexSize = 4;
constexpr double kLongWait = 1.0;
constexpr double kShortWait = 0.5;

constexpr std::uint8_t kRead = 'y';
constexpr std::uint8_t kStatusWord = 128;
constexpr std::uint8_t kSubRevision = 142;

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

}  // namespace

bool DriveIdentity::AwaitReply(std::size_t length, double limit) {
  return screen_.Desk().PumpEventsUntil([&] { return screen_.GlobalBuffer.size() >= length; }, limit);
}

std::string DriveIdentity::TakeIdentity() {
  std::string reply = screen_.GlobalBuffer.substr(0, kIdentitySize);
  screen_.GlobalBuffer.erase(0, kIdentitySize);
  screen_.DspRev = RevisionOf(static_cast<unsigned char>(reply[0]));
  screen_.DriveModelCode = static_cast<unsigned char>(reply[1]);
  return reply;
}

bool DriveIdentity::DriveStillThere() {
  screen_.CommandActive = true;
  comm_.Output("C");
  bool known = false;
  if (AwaitReply(kIdentitySize, kLongWait)) {
    TakeIdentity();
    known = std::any_of(kEarlierFamilies.begin(), kEarlierFamilies.end(), [this](const CodeRange& codes) {
      return screen_.DriveModelCode >= codes.first && screen_.DriveModelCode <= codes.last;
    });
  }
  screen_.CommandActive = false;
  return known;
}

std::string DriveIdentity::AskIdentity(const std::string& boxTitle) {
  screen_.CommandActive = true;
  PauseBeforeCommand(screen_);
  screen_.GlobalBuffer.clear();
  comm_.Output("C");
  const bool answered = AwaitReply(kIdentitySize, kShortWait);
  screen_.CommandActive = false;
  if (answered) return TakeIdentity();
  screen_.Desk().Ask({.text = kDriveNotResponding, .icon = BoxIcon::Question, .title = boxTitle});
  return {};
}

std::string DriveIdentity::CheckDrive() {
  std::string reply = AskIdentity("CheckDrive 0");
  if (reply.empty()) return {};
  const std::string letter = GetMinorRev();
  screen_.DriveVersion.SetCaption(RevisionText(screen_.DspRev) + letter);
  const int model = ModelIndex(screen_.DriveModelCode);
  if (model < 0) return {};
  screen_.ModelList.SetListIndex(model);
  return reply;
}

std::string DriveIdentity::SilentCheckDrive() {
  std::string reply = AskIdentity("Communication Error");
  if (reply.empty() || ModelIndex(screen_.DriveModelCode) >= 0) return reply;
  screen_.DriveVersion.SetCaption("");
  return {};
}

std::string DriveIdentity::GetMinorRev() {
  Write2Bytes(comm_, kRead, kSubRevision);
  if (!AwaitReply(kHexSize, kShortWait)) {
    screen_.GlobalBuffer.clear();
    return {};
  }
  const unsigned code = HexValue(screen_.GlobalBuffer.substr(2, 2));
  screen_.MinorRev = CharacterOf(static_cast<std::uint8_t>(code));
  screen_.GlobalBuffer.erase(0, kHexSize);
  return " " + screen_.MinorRev;
}

Long DriveIdentity::GetServoStatus() {
  if (NoCommPort(comm_)) return 0;
  screen_.CommandActive = true;
  screen_.GlobalBuffer.clear();
  Write2Bytes(comm_, kRead, kStatusWord);
  Long status = -1;
  if (AwaitReply(kHexSize, kLongWait)) {
    status = static_cast<Integer>(HexValue(screen_.GlobalBuffer.substr(0, kHexSize)));
    screen_.GlobalBuffer.clear();
  }
  screen_.CommandActive = false;
  return status;
}

}  // namespace kavr6
