#include "image/transfer_news.h"

#include <string>

namespace kavr6 {
namespace {

/// Why there was no transfer, or what became of it.
std::string Cause(TransferEnd end) {
  switch (end) {
    case TransferEnd::Declined:
      return "not wanted";
    case TransferEnd::NoPort:
      return "no port open";
    case TransferEnd::NoDrive:
      return "no drive of the family answers";
    case TransferEnd::OverLimit:
      return "more than the drive can do";
    case TransferEnd::NoReply:
      return "no answer in time";
    case TransferEnd::BadSum:
      return "checksum";
    case TransferEnd::Unknown:
      return "answer not known";
    case TransferEnd::Done:
      break;
  }
  return "";
}

}  // namespace

void TellDownload(DriveState& state, TransferEnd end) {
  if (end == TransferEnd::Done)
    return state.Happened.Tell("Downloaded to " + state.Drive.Model(), ", confirmed");
  const bool sent = end == TransferEnd::NoReply || end == TransferEnd::BadSum || end == TransferEnd::Unknown;
  const bool refused = end == TransferEnd::BadSum;
  state.Happened.Tell((refused ? "Download refused: "
                       : sent  ? "Download not confirmed: "
                               : "No download: ") +
                      Cause(end));
}

void TellUpload(DriveState& state, TransferEnd end) {
  if (end == TransferEnd::Done) return state.Happened.Tell("Uploaded from " + state.Drive.Model());
  state.Happened.Tell("No upload: " + Cause(end));
}

}  // namespace kavr6
