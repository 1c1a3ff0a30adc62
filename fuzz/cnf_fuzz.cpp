// Any bytes as a configuration file: they become a record that can be written and read again, or end in a
// RuntimeError that says where.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "config_file/settings_file.h"
#include "fuzz/require.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

struct File {
  FileHead head{.version = "1.0", .model = 0, .port = 0};
  Settings settings;
  MotorRecord row;

  explicit File(std::string_view content) {
    row = ReadSettingsFile(
        content, settings,
        {[this](Integer index) { head.model = index; }, [this](Integer index) { head.port = index; }});
  }
  std::string Text() const { return WriteSettingsFile(head, settings, row); }
};

/// Nothing when the bytes are no whole file.
std::optional<File> Read(std::string_view content) {
  try {
    return File(content);
  } catch (const RuntimeError& error) {
    const std::string_view text = error.what();
    Require(text.starts_with("Line ") || text.starts_with("The file "), "an error says where");
    return std::nullopt;
  }
}

void ReadAndWriteAgain(std::string_view content) {
  const std::optional<File> file = Read(content);
  if (!file) return;
  Require(file->settings.StepFilterFreq != 0, "a step filter");
  Require(file->settings.NoiseFilter >= 100 && file->settings.NoiseFilter <= 15000, "a noise filter");
  const std::string text = file->Text();
  // The last few numbers below the end of the range are rounded beyond it.
  if (text.find("E+308") != std::string::npos) return;
  // A file holds fewer digits than a number has; what has been through one is held in full.
  const std::optional<File> again = Read(text);
  Require(again && again->Text() == text, "what is written reads the same");
}

}  // namespace
}  // namespace kavr6

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kavr6::ReadAndWriteAgain({reinterpret_cast<const char*>(data), size});
  return 0;
}
