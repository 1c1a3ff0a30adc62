#include "tools/alarm_look.h"

#include "link/wire.h"

namespace kavr6 {

void AlarmLook::Take(std::uint8_t byte, DriveRecord& drive) {
  last_ = {last_[1], last_[2], byte};
  const auto [header, second, third] = last_;
  if (second >= kFirstHeader || third >= kFirstHeader) return;
  if (header == static_cast<std::uint8_t>(MessageHeader::Alarm)) drive.Alarm(AlarmWord(second, third));
  if (header == static_cast<std::uint8_t>(MessageHeader::Status))
    second == 0 ? drive.FaultCleared() : drive.FaultStands();
}

}  // namespace kavr6
