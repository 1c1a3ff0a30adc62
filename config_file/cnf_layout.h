// The lines of a configuration file and their values: the one description that reader and writer share.
#pragma once

#include <vector>

#include "core/settings_fields.h"

namespace kavr6 {

struct CnfLine {
  std::vector<SettingsField> fields;
  Integer since = 0;                      ///< first build whose files have it; from version 0.1 on all have
  void (*mend)(Settings&) = nullptr;      ///< done when the line has been read
  void (*ifAbsent)(Settings&) = nullptr;  ///< done where a file is too old to have it
  bool continues = false;                 ///< its values stand behind those of the line before
};

/// Lines that go together.
struct CnfBlock {
  enum class Of {
    Settings,  ///< separated by commas
    Row,       ///< motor block of another record, the catalogue motor; its numbers in print form
    Port       ///< no lines: the row of the port's list, alone on a line
  };
  Of of;
  std::vector<CnfLine> lines;
};

/// All lines behind the first two, which are the version and the drive model.
const std::vector<CnfBlock>& CnfLayout();

}  // namespace kavr6
