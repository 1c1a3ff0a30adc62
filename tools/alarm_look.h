// Alarm messages of the drive in a stream that belongs to somebody else.
#pragma once

#include <array>
#include <cstdint>

#include "core/drive_record.h"

namespace kavr6 {

/// Finds the three bytes of a message that tells of an alarm or of its end, and tells the record. It takes
/// nothing away: whoever owns the stream does with these bytes what it does with all.
class AlarmLook {
 public:
  void Take(std::uint8_t byte, DriveRecord& drive);
  /// The rest of one that has begun goes elsewhere.
  void Forget() { last_ = {}; }

 private:
  std::array<std::uint8_t, 3> last_{};
};

}  // namespace kavr6
