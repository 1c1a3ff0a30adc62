#include "command_line/compare_command.h"

#include <algorithm>

#include "command_line/json.h"
#include "comparison/comparison.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

class Comparer {
 public:
  Comparer(const CommandMachine& machine, const CommandOptions& options, DriveSession& session)
      : machine_(machine), options_(options), session_(session) {}

  ExitCode Run() {
    ComparedSide left;
    ComparedSide right;
    for (const auto& [word, side] : {std::pair(Left(), &left), {Right(), &right}}) {
      const ExitCode code = IsPort(word) ? ReadPort(word, *side) : ReadFile(word, *side);
      if (code != ExitCode::Done) return code;
    }
    const Comparison comparison = Compare(left, right);
    if (comparison.unsendable)
      session_.boxes.Tell("A setting of the file does not fit a drive: all are compared as they stand");
    options_.json ? PrintJson(comparison) : PrintTable(comparison);
    return comparison.differing == 0 ? ExitCode::Done : ExitCode::Differs;
  }

 private:
  const std::string& Left() const { return options_.files[0]; }
  const std::string& Right() const { return options_.files[1]; }
  bool IsPort(const std::string& word) const { return PortNumber(word) != 0 || machine_.IsDevice(word); }

  /// The number behind which a device is put must be none that has been asked for by its name.
  int SpareNumber() const {
    int number = 1;
    while (number == PortNumber(Left()) || number == PortNumber(Right())) ++number;
    return number;
  }

  ExitCode ReadPort(const std::string& port, ComparedSide& side) {
    if (const ExitCode code = session_.OpenPort(port, SpareNumber()); code != ExitCode::Done) return code;
    const ExitCode code = ReadDrive(port, side);
    machine_.comm.SetPortOpen(false);
    return code;
  }

  ExitCode ReadDrive(const std::string& port, ComparedSide& side) {
    if (const ExitCode code = session_.Identify(); code != ExitCode::Done) return code;
    const std::optional<Bytes> image = session_.FetchImage();
    if (!image) return ExitCode::NoAnswer;
    try {
      side = SideOfDrive(*image);
    } catch (const RuntimeError& error) {
      session_.boxes.Tell("The settings of the drive on " + port + " cannot be read: " + error.what());
      return ExitCode::NoAnswer;
    }
    return ExitCode::Done;
  }

  ExitCode ReadFile(const std::string& name, ComparedSide& side) {
    try {
      Settings start;
      InitVars(start);
      side = SideOfFile(machine_.files.Read(name), start);
      // An image is made from the motor of the table where that has it, as a download makes it.
      side.row = session_.TakeMotor(side.held.standard);
    } catch (const RuntimeError& error) {
      session_.boxes.Tell(name + " cannot be read: " + error.what());
      return ExitCode::BadFile;
    }
    return ExitCode::Done;
  }

  void PrintTable(const Comparison& comparison) const {
    const auto name = [](const ComparedSetting& setting) { return setting.section + ": " + setting.name; };
    std::size_t names = 0;
    std::size_t values = Characters(Left());
    for (int i = 0; i < comparison.differing; ++i) {
      const ComparedSetting& setting = comparison.settings[static_cast<std::size_t>(i)];
      names = std::max(names, Characters(name(setting)));
      values = std::max(values, Characters(setting.left));
    }
    const auto line = [&](const std::string& first, const std::string& left, const std::string& right) {
      machine_.out << Padded(first, names) << "  " << Padded(left, values) << "  " << right << "\n";
    };
    if (comparison.differing == 0) {
      machine_.out << "no difference: " << Left() << " and " << Right() << "\n";
      return;
    }
    line("", Left(), Right());
    for (int i = 0; i < comparison.differing; ++i) {
      const ComparedSetting& setting = comparison.settings[static_cast<std::size_t>(i)];
      line(name(setting), setting.left, setting.right);
    }
  }

  void PrintJson(const Comparison& comparison) const {
    std::vector<std::string> settings;
    std::vector<std::string> notStored;
    for (const ComparedSetting& setting : comparison.settings) {
      const std::string section = JsonText(setting.section);
      const std::string name = JsonText(setting.name);
      if (setting.likeness == Likeness::Differs)
        settings.push_back(JsonObject({{"section", section},
                                       {"setting", name},
                                       {"a", JsonText(setting.left)},
                                       {"b", JsonText(setting.right)}}));
      if (setting.likeness == Likeness::NotStored)
        notStored.push_back(JsonObject({{"section", section}, {"setting", name}}));
    }
    machine_.out << JsonObject({{"result", JsonText(settings.empty() ? "same" : "differs")},
                                {"a", JsonText(Left())},
                                {"b", JsonText(Right())},
                                {"settings", JsonList(settings)},
                                {"notStored", JsonList(notStored)}})
                 << "\n";
  }

  static std::size_t Characters(const std::string& utf8) {
    return static_cast<std::size_t>(std::ranges::count_if(
        utf8, [](char unit) { return (static_cast<unsigned char>(unit) & 0xC0U) != 0x80U; }));
  }
  static std::string Padded(const std::string& text, std::size_t width) {
    return text + std::string(width - Characters(text), ' ');
  }

  const CommandMachine& machine_;
  const CommandOptions& options_;
  DriveSession& session_;
};

}  // namespace

ExitCode CompareCommand(const CommandMachine& machine, const CommandOptions& options, DriveSession& session) {
  return Comparer(machine, options, session).Run();
}

}  // namespace kavr6
