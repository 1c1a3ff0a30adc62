#include "core/drive_state.h"

#include "core/numbers.h"

namespace kavr6 {
namespace {

// The two ranges of control characters, 0 to 31 and 128 to 159, have neither of the bits 0x60.
constexpr char kDelete = 0x7F;

}  // namespace

void DriveState::SelectModelOfDrive(int index) {
  if (ModelIndex == index) return;
  ModelIndex = index;
  Drive.ListMoved(true);
}

float RevisionOf(int revisionByte) { return static_cast<float>(revisionByte / 100.0 + 1.0); }

std::string ShownRevision(float revision, const std::string& letter) {
  const std::string number = FormatNumber(revision, "0.00");
  const std::string codes = CharacterCodes(letter);
  const bool shown = !codes.empty() && (codes[0] & 0x60) != 0 && codes[0] != kDelete;
  return shown ? number + " " + letter : number;
}

void ShowModeName(DriveState& state, const Settings& settings) {
  state.MotionDesc = ModeName(settings, state.MotionDesc);
}

}  // namespace kavr6
