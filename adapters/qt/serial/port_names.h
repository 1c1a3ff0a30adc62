// Which device stands behind COM1 to COM8.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace kavr6 {

/// Orders names as a person does: "ttyUSB2" before "ttyUSB10".
bool NaturalLess(const std::string& a, const std::string& b);

/// Folders of links; a link in the first one goes before its like in the others. None of them need exist.
struct LinkFolders : std::vector<std::filesystem::path> {
  using vector::vector;
  LinkFolders(std::filesystem::path only) : vector{std::move(only)} {}
};

/// The device for port `number` (1 to 8), empty without one. A link "COMn" in one of the folders pins its
/// target to that number, whether or not the target is there; `systemPorts` without the pinned ones fill the
/// other numbers in their order.
std::string DeviceForPort(int number, const LinkFolders& links, const std::vector<std::string>& systemPorts);

/// The assignment as it stands at the moment of asking; adapters come and go.
class PortNames {
 public:
  explicit PortNames(LinkFolders links) : links_(std::move(links)) {}
  /// The device for port `number` (1 to 8), empty without one. On Windows the port of that name, and no
  /// links.
  std::string Device(int number) const;
  /// Whether a link, or Use, says which device has that number.
  bool Pinned(int number) const;
  /// Another one for each link that is made for that number; empty without a link, and on Windows.
  std::string LinkMark(int number) const;
  /// The folders in which a device comes or goes when one does that has a number, or will have one. They are
  /// there at this moment; none on Windows.
  std::vector<std::filesystem::path> Folders() const;
  /// From now on this device stands behind that number.
  void Use(int number, const std::string& device) { chosen_ = {number, device}; }

 private:
  const std::vector<std::string>& SystemPorts() const;

  LinkFolders links_;
  std::pair<int, std::string> chosen_;
  mutable std::vector<std::string> systemPorts_;
  mutable std::filesystem::file_time_type listed_{};
  mutable bool settled_ = false;
};

}  // namespace kavr6
