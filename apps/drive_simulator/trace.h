// What passes on the line, in words.
#pragma once

#include <string>

#include "simulator/simulated_drive.h"

namespace kavr6 {

/// One line without its end, such as "-> C", "<- SC=0001<CR>" or "<- 34 29  identity 1.52 KAVR6-Bx".
std::string Describe(const DriveEvent& event);
/// "1.52" for 52.
std::string RevisionText(int revisionByte);
/// Name of the model, or "model N".
std::string ModelText(int code);

}  // namespace kavr6
