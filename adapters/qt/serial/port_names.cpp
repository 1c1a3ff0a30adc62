#include "adapters/qt/serial/port_names.h"

#include <QSerialPortInfo>
#include <algorithm>
#include <cctype>
#include <chrono>
#include <fstream>
#include <optional>
#include <set>

#include <sys/stat.h>

#include "platform/path_text.h"

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

constexpr int kPorts = 8;

std::string ComName(int number) { return "COM" + std::to_string(number); }

/// The link for that number, empty without one.
fs::path LinkOf(int number, const LinkFolders& links) {
  for (const fs::path& folder : links) {
    std::error_code error;
    if (fs::exists(fs::symlink_status(folder / ComName(number), error))) return folder / ComName(number);
  }
  return {};
}

std::optional<std::string> PinnedTo(int number, const LinkFolders& links) {
  const fs::path link = LinkOf(number, links);
  if (link.empty()) return {};
  std::error_code error;
  const fs::path target = fs::read_symlink(link, error);
  return PathText(error ? link : (link.parent_path() / target).lexically_normal());
}

/// The folder, or the nearest one around it that is there.
fs::path ExistingFolder(fs::path folder) {
  std::error_code error;
  while (!fs::is_directory(folder, error) && folder.has_relative_path()) folder = folder.parent_path();
  return folder;
}

/// The kernel keeps a row of port names without hardware and marks them with type 0. Reading the mark touches
/// no port.
bool HasHardware(const QSerialPortInfo& port) {
  int type = -1;
  std::ifstream("/sys/class/tty/" + port.portName().toStdString() + "/type") >> type;
  return type != 0;
}

std::vector<std::string> ListSystemPorts() {
  std::vector<std::string> names;
  for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts())
    if (HasHardware(port)) names.push_back(port.systemLocation().toStdString());
  std::sort(names.begin(), names.end(), NaturalLess);
  return names;
}

}  // namespace

bool NaturalLess(const std::string& a, const std::string& b) {
  const auto split = [](const std::string& name) {
    std::size_t digits = name.size();
    while (digits > 0 && std::isdigit(static_cast<unsigned char>(name[digits - 1])) != 0) --digits;
    return std::tuple(name.substr(0, digits), name.size(), name);
  };
  return split(a) < split(b);
}

std::string DeviceForPort(int number, const LinkFolders& links, const std::vector<std::string>& systemPorts) {
  if (const auto pinned = PinnedTo(number, links)) return *pinned;
  std::set<fs::path> taken;
  int unpinnedBefore = 0;
  for (int other = 1; other <= kPorts; ++other) {
    std::error_code error;
    if (const auto pinned = PinnedTo(other, links)) {
      taken.insert(fs::canonical(PathOf(*pinned), error));
    } else if (other < number) {
      ++unpinnedBefore;
    }
  }
  for (const std::string& port : systemPorts) {
    std::error_code error;
    const fs::path device = fs::canonical(PathOf(port), error);
    if (!error && taken.count(device) != 0) continue;
    if (unpinnedBefore-- == 0) return port;
  }
  return {};
}

std::string PortNames::Device(int number) const {
  if (number == chosen_.first) return chosen_.second;
  // Listing the system's ports costs milliseconds; the port of the first start on a bench is often pinned.
  if (const auto pinned = PinnedTo(number, links_)) return *pinned;
  return DeviceForPort(number, links_, SystemPorts());
}

bool PortNames::Pinned(int number) const {
  return number == chosen_.first || PinnedTo(number, links_).has_value();
}

std::string PortNames::LinkMark(int number) const {
  struct stat link {};
  if (lstat(LinkOf(number, links_).c_str(), &link) != 0) return {};
  return std::to_string(link.st_ino) + " " + std::to_string(link.st_ctim.tv_sec) + " " +
         std::to_string(link.st_ctim.tv_nsec);
}

std::vector<fs::path> PortNames::Folders() const {
  std::set<fs::path> folders{"/dev"};
  for (const fs::path& folder : links_) folders.insert(ExistingFolder(folder));
  if (chosen_.first != 0) folders.insert(ExistingFolder(PathOf(chosen_.second).parent_path()));
  for (int number = 1; number <= kPorts; ++number)
    if (const auto pinned = PinnedTo(number, links_))
      folders.insert(ExistingFolder(PathOf(*pinned).parent_path()));
  return {folders.begin(), folders.end()};
}

const std::vector<std::string>& PortNames::SystemPorts() const {
  // Listing takes milliseconds; the device folder's time tells whether anything has come or gone since. Its
  // clock ticks too slowly to tell what comes right behind something else.
  constexpr std::chrono::milliseconds kTick(100);
  std::error_code error;
  const auto changed = fs::last_write_time("/dev", error);
  if (error || changed != listed_ || !settled_) systemPorts_ = ListSystemPorts();
  listed_ = changed;
  settled_ = fs::file_time_type::clock::now() - changed > kTick;
  return systemPorts_;
}

}  // namespace kavr6
