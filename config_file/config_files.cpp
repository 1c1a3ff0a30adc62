#include "config_file/config_files.h"

#include <filesystem>

#include "config_file/settings_file.h"
#include "core/numbers.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

/// The row under the cursor. A motor that came from a file or a drive has no winding: what is empty counts 0.
MotorRecord SelectedRow(const MotorTable& table) {
  const auto number = [&](const char* column) { return table.IsEmpty(column) ? 0.0 : table.Number(column); };
  MotorRecord row;
  row.MotorName = table.Text("part number");
  row.RatedCurrent = number("current");
  row.RatedTorque = number("Torque");
  row.TorqueUnit = ToInteger(number("TorqueUnit"));
  row.RotorInertia = number("inertia");
  row.InertiaUnit = ToInteger(number("InertiaUnit"));
  row.HarmonicGain = ToLong(number("harmonic gain"));
  row.HarmonicPhase = ToLong(number("harmonic phase"));
  row.MotorR = number("R");
  row.MotorL = number("L");
  row.LeadAngleRps = ToLong(number("leadangle rps"));
  row.LeadAngleDeg = ToLong(number("leadangle deg"));
  row.MaxVoltsPct = number("PWMmaxPct");
  return row;
}

std::string FolderOf(const std::string& name) {
  const std::u8string folder =
      std::filesystem::path(std::u8string(name.begin(), name.end())).parent_path().u8string();
  return {folder.begin(), folder.end()};
}

void SelectRow(ListBox& list, int row, const std::string& what) {
  if (row < -1 || row >= list.Count())
    throw RuntimeError(380, "there is no " + what + " with the index " + std::to_string(row));
  list.SetListIndex(row);
}

}  // namespace

std::string ConfigFiles::ChooseFile(FileDialog::Purpose purpose) {
  FileDialogState& dialog = screen_.SaveFile;
  std::string name = screen_.Desk().ChooseFile({.purpose = purpose,
                                                .filter = dialog.Filter,
                                                .defaultExtension = dialog.DefaultExt,
                                                .folder = dialog.InitDir});
  if (!name.empty()) dialog.InitDir = FolderOf(name);
  return name;
}

void ConfigFiles::ShowError(const std::string& text) { screen_.Desk().Ask({.text = text}); }

std::string ConfigFiles::FileText() const {
  return WriteSettingsFile({.version = screen_.AppVersion,
                            .model = ToInteger(screen_.ModelList.ListIndex()),
                            .port = ToInteger(screen_.CommList.ListIndex())},
                           settings_, SelectedRow(motorTable_));
}

void ConfigFiles::MenuSave() {
  if (screen_.FileName.empty()) {
    DoSaveAs();
  } else {
    DoSave();
  }
}

void ConfigFiles::MenuSaveAs() { DoSaveAs(); }

std::optional<std::string> ConfigFiles::WriteFile(const std::string& name) {
  try {
    files_.Replace(name, FileText());
    return std::nullopt;
  } catch (const RuntimeError& error) {
    return error.what();
  }
}

void ConfigFiles::DoSave() {
  if (const auto error = WriteFile(screen_.FileName)) {
    ShowError("Error saving file: " + *error);
    return;
  }
  screen_.Modified = false;
}

void ConfigFiles::DoSaveAs() {
  const std::string name = ChooseFile(FileDialog::Purpose::Save);
  if (name.empty()) return;
  const auto error = WriteFile(name);
  ShowTitle(screen_, name);  // also after an error
  if (error) {
    ShowError("Error saving file: " + *error);
    return;
  }
  screen_.FileName = name;
  screen_.Modified = false;
}

void ConfigFiles::MenuOpen() {
  if (screen_.Modified) {
    const BoxAnswer answer = screen_.Desk().Ask(
        {.text =
             "You have made changes without Saving or Downloading.  Do you really want to open a file and "
             "replace your program?",
         .icon = BoxIcon::Question,
         .title = "Open",
         .buttons = BoxButtons::OkCancel});
    if (answer != BoxAnswer::Ok) return;
  }
  const std::string name = ChooseFile(FileDialog::Purpose::Open);
  if (name.empty()) return;
  std::string content;
  try {
    content = files_.Read(name);
  } catch (const RuntimeError&) {
    ShowError("Error: could not open file.");
    return;
  }
  try {
    ReadData(content);
  } catch (const RuntimeError& error) {
    // Some errors are whole sentences.
    std::string cause = error.what();
    if (cause.ends_with('.')) cause.pop_back();
    ShowError("Error: couldn't read file.  " + cause + ".");
  }
  screen_.Modified = false;
  screen_.InertiaSet = true;
  ShowTitle(screen_, name);
  screen_.FileName = name;
}

void ConfigFiles::ReadData(const std::string& content) {
  const MotorRecord row = ReadSettingsFile(
      content, settings_,
      {.SelectModel = [this](Integer index) { SelectRow(screen_.ModelList, index, "drive model"); },
       .SelectPort = [this](Integer index) { SelectRow(screen_.CommList, index, "serial port"); }});
  if (AddMotorIfMissing) AddMotorIfMissing(row);
  ShowModeName(screen_, settings_);
  if (SummarizeAll) SummarizeAll();
}

}  // namespace kavr6
