// The question for a file, as data.
#pragma once

#include <string>

namespace kavr6 {

struct FileDialog {
  enum class Purpose { Open, Save };
  Purpose purpose = Purpose::Open;
  std::string filter;            ///< as "Configurator Files|*.cnf"
  std::string defaultExtension;  ///< added to a typed name that has none
  std::string folder;            ///< where the dialog begins, UTF-8
};

/// What the questions for a file, to open or save, and for a printer have in common.
struct FileDialogState {
  std::string Filter = "Configurator Files|*.cnf";
  std::string DefaultExt = "cnf";
  std::string InitDir;       ///< where the next one begins, UTF-8
  bool CancelError = false;  ///< giving up is an error of the command
  int Flags = 0;             ///< of the question for a printer, see print_job.h
};

}  // namespace kavr6
