#include "apps/drive_simulator/options.h"

#include <charconv>
#include <cmath>
#include <functional>
#include <stdexcept>
#include <string_view>

#include "core/drive_models.h"

namespace kavr6 {
namespace {

[[noreturn]] void Refuse(const std::string& what) { throw std::runtime_error(what + "; see --help"); }

std::string PortName(const std::string& text) {
  if (text.size() != 4 || !text.starts_with("COM") || text[3] < '1' || text[3] > '8')
    Refuse("the port is one of COM1 to COM8, not '" + text + "'");
  return text;
}

int ModelCode(const std::string& name) {
  std::string known;
  for (const DriveModel& model : kDriveModels) {
    if (model.name == name) return model.code;
    known += " " + std::string(model.name);
  }
  Refuse("no model '" + name + "' among" + known);
}

int RevisionByte(const std::string& text) {
  double revision = 0.0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, revision);
  const double byte = std::round((revision - 1.0) * 100.0);
  if (error != std::errc() || rest != end || !(byte >= 0.0 && byte <= 127.0))
    Refuse("the revision is a number from 1.00 to 2.27, not '" + text + "'");
  return static_cast<int>(byte);
}

char Letter(const std::string& text) {
  if (text.size() != 1) Refuse("the letter is one character, not '" + text + "'");
  return text[0];
}

struct Option {
  std::string_view name;
  std::string_view value;  ///< what stands behind the name; empty for a switch
  std::string_view help;
  std::function<void(SimulatorOptions&, const std::string&)> take;
};

const Option kOptions[] = {
    {"--port", "COMn", "port to stand behind, COM1 to COM8 (COM1)",
     [](SimulatorOptions& o, const std::string& v) { o.port = PortName(v); }},
    {"--dir", "DIR", "where the folder ports is or goes (the program's folder)",
     [](SimulatorOptions& o, const std::string& v) { o.directory = v; }},
    {"--model", "NAME", "drive model, such as KAVR6-Zu-220 (KAVR6-Bx)",
     [](SimulatorOptions& o, const std::string& v) { o.modelCode = ModelCode(v); }},
    {"--revision", "N.NN", "firmware revision (1.52)",
     [](SimulatorOptions& o, const std::string& v) { o.revisionByte = RevisionByte(v); }},
    {"--letter", "L", "letter of the sub-revision (k)",
     [](SimulatorOptions& o, const std::string& v) { o.letter = Letter(v); }},
    {"--image", "FILE", "keep the drive's configuration in this file from run to run",
     [](SimulatorOptions& o, const std::string& v) { o.imageFile = v; }},
    {"--quiet", "", "print no traffic", [](SimulatorOptions& o, const std::string&) { o.quiet = true; }},
    {"--trace-queries", "", "print what the live tools ask without end, and the answers",
     [](SimulatorOptions& o, const std::string&) { o.queries = true; }},
    {"--unpaced", "", "pass bytes as fast as they come instead of at 9600 baud",
     [](SimulatorOptions& o, const std::string&) { o.unpaced = true; }},
    {"--help", "", "print this and end", [](SimulatorOptions& o, const std::string&) { o.help = true; }},
};

const Option& Find(std::string_view name) {
  for (const Option& option : kOptions)
    if (option.name == name) return option;
  Refuse("unknown option '" + std::string(name) + "'");
}

}  // namespace

SimulatorOptions ParseOptions(std::span<char* const> arguments) {
  SimulatorOptions options;
  options.directory = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const Option& option = Find(arguments[i]);
    std::string value;
    if (!option.value.empty()) {
      if (i + 1 == arguments.size())
        Refuse(std::string(option.name) + " lacks its " + std::string(option.value));
      value = arguments[++i];
    }
    option.take(options, value);
  }
  return options;
}

std::string OptionsHelp() {
  std::string text =
      "drive_simulator [options]\n\n"
      "Stands in for a KAVR6 drive: opens a pseudo-terminal, makes the link ports/COMn to it, and answers as "
      "a\n"
      "drive does until it is ended. Takes orders on its standard input and prints what passes on the "
      "line.\n\n"
      "Options (with what holds without them):\n";
  for (const Option& option : kOptions) {
    std::string left = "  " + std::string(option.name) + " " + std::string(option.value);
    left.resize(20, ' ');
    text += left + std::string(option.help) + "\n";
  }
  return text;
}

}  // namespace kavr6
