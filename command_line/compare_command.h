// The command that compares two files or drives.
#pragma once

#include "command_line/session.h"

namespace kavr6 {

/// Each of the two words of `options` is a file or a port. What a drive holds is read and nothing is written.
/// What went wrong has been told.
ExitCode CompareCommand(const CommandMachine& machine, const CommandOptions& options, DriveSession& session);

}  // namespace kavr6
