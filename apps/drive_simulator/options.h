// What the program is told when it is started.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "core/drive_models.h"

namespace kavr6 {

struct SimulatorOptions {
  std::string port = "COM1";
  std::filesystem::path directory;  ///< the link goes to its folder "ports"; the program's own by default
  int modelCode = kDriveModels.front().code;
  int revisionByte = 52;
  char letter = 'k';
  std::optional<std::filesystem::path> imageFile = {};
  bool quiet = false;
  bool queries = false;  ///< prints the queries of the text language and their answers too
  bool unpaced = false;
  bool help = false;
};

/// std::runtime_error with a sentence for the user on anything it does not understand.
SimulatorOptions ParseOptions(std::span<char* const> arguments);
std::string OptionsHelp();

}  // namespace kavr6
