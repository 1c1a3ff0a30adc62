// The version of the program.
#pragma once

#include <string>

namespace kavr6 {

struct ProgramVersion {
  int major = 0;
  int minor = 0;
  int revision = 0;
};

/// "1.0", or "1.0.3" when the revision is not 0.
inline std::string VersionText(const ProgramVersion& version) {
  std::string text = std::to_string(version.major) + "." + std::to_string(version.minor);
  if (version.revision != 0) text += "." + std::to_string(version.revision);
  return text;
}

}  // namespace kavr6
