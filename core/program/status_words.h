// What the main screen says of line, drive and settings, in words and pictures.
#pragma once

#include <string>

#include "core/drive_state.h"
#include "core/program/settings_watch.h"
#include "platform/mscomm.h"

namespace kavr6 {

/// Words, what matters most first and parts set off by a comma and a blank, and a picture of the artwork.
struct StatusCell {
  std::string words;
  std::string picture;
};

StatusCell LineCell(const MSComm& comm, const DriveState& state);
StatusCell DriveCell(const DriveState& state, bool portOpen);
StatusCell InDriveCell(InDrive fact);
StatusCell InFileCell(InFile fact);
/// Picture of the drive's status lamp: hollow, full, or with a mark for an alarm.
std::string LampPicture(const DriveRecord& drive);

}  // namespace kavr6
