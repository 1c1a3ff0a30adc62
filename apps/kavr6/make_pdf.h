// The part that prints, which is a program of its own.
#pragma once

#include <filesystem>
#include <string>

#include "platform/event_pump.h"

namespace kavr6 {

/// Has the program in that folder make the PDF file of a document (CommandMachine::MakePdf); events run
/// meanwhile. RuntimeError where it is not there, fails or does not end.
std::string MakePdf(EventPump& pump, const std::filesystem::path& folder, const std::string& document);

}  // namespace kavr6
