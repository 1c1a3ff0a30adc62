// How a transfer ended, and its words in the news.
#pragma once

#include "core/drive_state.h"

namespace kavr6 {

/// How a transfer ended.
enum class TransferEnd {
  Done,       ///< acknowledged by the drive, or read from it with the right sum
  Declined,   ///< the user has said no to a question
  NoPort,     ///< no port is open
  NoDrive,    ///< nothing has answered, or a drive that is none of the family
  OverLimit,  ///< a setting is beyond what drive or firmware can do; nothing has been sent
  NoReply,    ///< nothing, or not all of it, has come in time
  BadSum,     ///< the drive has refused the sum, or that of its image does not hold
  Unknown,    ///< the drive's answer to an image was none that is known
};

/// What the user has asked for has ended so.
void TellDownload(DriveState& state, TransferEnd end);
void TellUpload(DriveState& state, TransferEnd end);

}  // namespace kavr6
