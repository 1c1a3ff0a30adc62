#include <array>

#include <windows.h>

#include "adapters/qt/serial/port_names.h"

namespace kavr6 {

std::string PortNames::Device(int number) const {
  if (number == chosen_.first) return chosen_.second;
  const std::string name = "COM" + std::to_string(number);
  // Asking for one name touches no port and costs next to nothing; listing takes milliseconds.
  std::array<char, MAX_PATH> target;
  const bool known = QueryDosDeviceA(name.c_str(), target.data(), MAX_PATH) != 0 ||
                     GetLastError() == ERROR_INSUFFICIENT_BUFFER;
  return known ? name : std::string();
}

bool PortNames::Pinned(int number) const { return number == chosen_.first; }

std::string PortNames::LinkMark(int /*number*/) const { return {}; }

std::vector<std::filesystem::path> PortNames::Folders() const { return {}; }

}  // namespace kavr6
