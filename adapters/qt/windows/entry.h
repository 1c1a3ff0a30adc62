// The way from an event of the toolkit into the logic.
#pragma once

#include "platform/desktop.h"

namespace kavr6 {

/// Runs one event's work. No exception leaves it for the toolkit: a RuntimeError is reported by
/// Desktop::Enter, any other by ReportFault; both end the program.
void EnterLogic(Desktop& desktop, const Scheduler::Task& work);

/// The report of a fault of the program itself: on the standard error output and in one box; then the end
/// with exit code 1.
[[noreturn]] void ReportFault(Desktop& desktop, const std::string& what);

}  // namespace kavr6
