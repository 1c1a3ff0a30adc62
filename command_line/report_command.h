// The command that tells settings in words.
#pragma once

#include "command_line/session.h"

namespace kavr6 {

/// Prints the report on a file as text, or has it saved as PDF. RuntimeError where the motor table fails.
ExitCode ReportCommand(const CommandMachine& machine, const CommandOptions& options, DriveSession& session);

}  // namespace kavr6
