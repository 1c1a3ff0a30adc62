// The commands of the program without windows.
#pragma once

#include "command_line/session.h"

namespace kavr6 {

/// Obeys; what went wrong has been told. `onSession` is handed the session as soon as there is one, and
/// nullptr before it goes.
ExitCode RunCommand(const CommandMachine& machine, const CommandOptions& options,
                    const std::function<void(DriveSession*)>& onSession = {});

}  // namespace kavr6
