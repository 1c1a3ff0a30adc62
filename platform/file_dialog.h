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

/// The folder that a file is in; full paths in UTF-8.
std::string FolderOf(const std::string& name);

}  // namespace kavr6
