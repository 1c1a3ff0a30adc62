#include "adapters/qt/serial/port_names.h"

#include <QSerialPortInfo>
#include <algorithm>
#include <cctype>
#include <fstream>
#include <optional>
#include <set>

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

constexpr int kPorts = 8;

std::string ComName(int number) { return "COM" + std::to_string(number); }

std::optional<std::string> PinnedTo(int number, const fs::path& links) {
  const fs::path link = links / ComName(number);
  std::error_code error;
  if (!fs::exists(fs::symlink_status(link, error))) return {};
  const fs::path target = fs::read_symlink(link, error);
  return (error ? link : (links / target).lexically_normal()).string();
}

#ifndef Q_OS_WIN
/// The kernel keeps a row of port names without hardware and marks them with type 0. Reading the mark touches
/// no port.
bool HasHardware(const QSerialPortInfo& port) {
  int type = -1;
  std::ifstream("/sys/class/tty/" + port.portName().toStdString() + "/type") >> type;
  return type != 0;
}
#endif

std::vector<std::string> ListSystemPorts() {
  std::vector<std::string> names;
  for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
#ifdef Q_OS_WIN
    names.push_back(port.portName().toStdString());
#else
    if (HasHardware(port)) names.push_back(port.systemLocation().toStdString());
#endif
  }
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

std::string DeviceForPort(int number, const fs::path& links, const std::vector<std::string>& systemPorts) {
  if (const auto pinned = PinnedTo(number, links)) return *pinned;
  std::set<fs::path> taken;
  int unpinnedBefore = 0;
  for (int other = 1; other <= kPorts; ++other) {
    std::error_code error;
    if (const auto pinned = PinnedTo(other, links)) {
      taken.insert(fs::canonical(*pinned, error));
    } else if (other < number) {
      ++unpinnedBefore;
    }
  }
  for (const std::string& port : systemPorts) {
    std::error_code error;
    const fs::path device = fs::canonical(port, error);
    if (!error && taken.count(device) != 0) continue;
    if (unpinnedBefore-- == 0) return port;
  }
  return {};
}

std::string PortNames::Device(int number) const {
  if (number == chosen_.first) return chosen_.second;
#ifdef Q_OS_WIN
  const auto& ports = SystemPorts();
  return std::find(ports.begin(), ports.end(), ComName(number)) != ports.end() ? ComName(number) : "";
#else
  // Listing the system's ports costs milliseconds; the port of the first start on a bench is often pinned.
  if (const auto pinned = PinnedTo(number, links_)) return *pinned;
  return DeviceForPort(number, links_, SystemPorts());
#endif
}

const std::vector<std::string>& PortNames::SystemPorts() const {
  // Listing takes milliseconds; the device folder's time tells whether anything has come or gone since.
  std::error_code error;
  const auto changed = fs::last_write_time("/dev", error);
  if (error || changed != listed_) systemPorts_ = ListSystemPorts();
  listed_ = changed;
  return systemPorts_;
}

}  // namespace kavr6
