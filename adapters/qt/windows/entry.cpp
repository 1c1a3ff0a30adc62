#include "adapters/qt/windows/entry.h"

#include <cstdio>

namespace kavr6 {

void EnterLogic(Desktop& desktop, const Scheduler::Task& work) {
  try {
    desktop.Enter(work);
  } catch (const std::exception& fault) {
    ReportFault(desktop, fault.what());
  }
}

void ReportFault(Desktop& desktop, const std::string& what) {
  std::fprintf(stderr, "Internal error: %s\n", what.c_str());
  desktop.Ask({.text = "Internal error:\n\n" + what, .icon = BoxIcon::Critical});
  desktop.EndProgram(1);
}

}  // namespace kavr6
