// Commands of the main screen's menu that act on the drive and have no window.
#pragma once

#include "link/drive_identity.h"
#include "link/drive_line.h"

namespace kavr6 {

/// Clears the drive's fault and tells what came of it. Alarm messages that come meanwhile open no window.
/// With the port closed it tells of a fault that has been cleared.
void MenuClearFault(const DriveLine& line, DriveIdentity& identity);

/// Puts back the drive's factory values, after a question, and looks which drive answers then.
void MenuRestore(const DriveLine& line, DriveIdentity& identity);

}  // namespace kavr6
