#include "config_file/config_files.h"

#include "config_file/settings_file.h"
#include "core/numbers.h"
#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
std::string ConfigFiles::ChooseFile(FileDialog::Purpose purpose) {
  FileDialogState& dialog = SaveFile;
  std::string name = p_.desk.ChooseFile({.purpose = purpose,
                                         .filter = dialog.Filter,
                                         .defaultExtension = dialog.DefaultExt,
                                         .folder = dialog.InitDir});
  if (!name.empty()) dialog.InitDir = FolderOf(name);
  return name;
}

std::string ConfigFiles::FileText() const {
  return WriteSettingsFile({.version = p_.state.AppVersion,
                            .model = ToInteger(p_.state.ModelIndex),
                            .port = ToInteger(p_.state.CommIndex)},
                           p_.settings, RecordOf(p_.motorTable.Row()));
}

void ConfigFiles::MenuSave() {
  if (p_.state.FileName.empty()) {
    DoSaveAs();
  } else {
    DoSave();
  }
}

void ConfigFiles::MenuSaveAs() { DoSaveAs(); }

std::optional<std::string> ConfigFiles::WriteFile(const std::string& name) {
  try {
    const std::string text = FileText();
    p_.files.Replace(name, text);
    written_ = text;
    return std::nullopt;
  } catch (const RuntimeError& error) {
    return std::string("Error saving file: ") + error.what();
  }
}

std::optional<std::string> ConfigFiles::ContentOf(const std::string& name) const {
  try {
    return p_.files.Read(name);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

InFile ConfigFiles::LookAtFile() const {
  if (p_.state.FileName.empty()) return InFile::NoFile;
  const std::optional<std::string> content = ContentOf(p_.state.FileName);
  if (!content) return InFile::Unknown;
  if (known_ && content != known_) return InFile::Foreign;
  try {
    return FileText() == content ? InFile::Yes : InFile::No;
  } catch (const RuntimeError&) {
    return InFile::No;  // it could not even be written
  }
}

bool ConfigFiles::AskToReplace(const std::string& why) {
  const BoxAnswer answer = p_.desk.Ask(
      {.text = why + ":\n\n" + p_.state.FileName +
               "\n\nSaving replaces it by the settings as they stand on the screen.  Do you really want to "
               "replace the file?",
       .icon = BoxIcon::Question,
       .title = "Save",
       .buttons = BoxButtons::OkCancel,
       .careful = true});
  return answer == BoxAnswer::Ok;
}

// One question, for the reason that weighs most.
bool ConfigFiles::MayReplaceFile() {
  std::optional<std::string> content;
  try {
    content = p_.files.Read(p_.state.FileName);
  } catch (const RuntimeError& error) {
    if (error.Number() == FileStore::kNoFile || error.Number() == FileStore::kNoFolder) return true;
  }
  if (!content)
    return AskToReplace("This file cannot be read any more, and another program may have changed it");
  if (known_ && content != known_)
    return AskToReplace("Another program has changed this file since it was opened or saved here");
  return p_.state.FileName != unread_ ||
         AskToReplace("This file could not be read to its end when it was opened");
}

void ConfigFiles::Saved(const std::string& name) {
  known_ = written_;
  ++fileRevision_;
  if (name == unread_) unread_.clear();
  p_.state.FileName = name;
  p_.state.Modified = false;
  p_.state.Happened.Tell("Saved " + FileNameOf(name));
}

void ConfigFiles::NotSaved(const std::string& name, const std::string& error) {
  p_.state.Happened.Tell("Not saved: " + FileNameOf(name));
  p_.desk.Ask({.text = error});
}

void ConfigFiles::DoSave() {
  if (!MayReplaceFile()) return;
  const std::string name = p_.state.FileName;
  const auto error = WriteFile(name);
  error ? NotSaved(name, *error) : Saved(name);
}

void ConfigFiles::DoSaveAs() {
  const std::string name = ChooseFile(FileDialog::Purpose::Save);
  if (name.empty()) return;
  const auto error = WriteFile(name);
  p_.state.TitleName = name;  // also after an error
  error ? NotSaved(name, *error) : Saved(name);
}

void ConfigFiles::RescueSettings() {
  for (;;) {
    const std::string name = ChooseFile(FileDialog::Purpose::Save);
    if (name.empty()) return;
    const auto error = WriteFile(name);
    if (!error) return;
    p_.desk.Ask({.text = *error, .icon = BoxIcon::Critical});
  }
}

bool ConfigFiles::MayReplaceChanges() {
  if (!p_.state.Modified) return true;
  const BoxAnswer answer = p_.desk.Ask(
      {.text = "You have made changes without Saving or Downloading.  Do you really want to open a file and "
               "replace your program?",
       .icon = BoxIcon::Question,
       .title = "Open",
       .buttons = BoxButtons::OkCancel,
       .careful = true});
  return answer == BoxAnswer::Ok;
}

void ConfigFiles::MenuOpen() {
  if (!MayReplaceChanges()) return;
  const std::string name = ChooseFile(FileDialog::Purpose::Open);
  if (!name.empty()) OpenFile(name);
}

void ConfigFiles::OpenChosen(const std::string& name) {
  if (!MayReplaceChanges()) return;
  SaveFile.InitDir = FolderOf(name);
  OpenFile(name);
}

std::string ConfigFiles::ChooseToRead() { return ChooseFile(FileDialog::Purpose::Open); }

void ConfigFiles::TellNotOpened() { p_.desk.Ask({.text = "Error: could not open file."}); }

void ConfigFiles::TellUnread(const RuntimeError& error) {
  // Some errors are whole sentences.
  std::string cause = error.what();
  if (cause.ends_with('.')) cause.pop_back();
  p_.desk.Ask({.text = "Error: couldn't read file.  " + cause + "."});
}

void ConfigFiles::OpenFile(const std::string& name) {
  const std::optional<std::string> content = ContentOf(name);
  if (!content) {
    p_.state.Happened.Tell("Could not open " + FileNameOf(name));
    return TellNotOpened();
  }
  unread_.clear();
  try {
    ReadData(*content);
  } catch (const RuntimeError& error) {
    unread_ = name;
    TellUnread(error);
  }
  if (SettingsReplaced) SettingsReplaced();
  p_.state.Modified = false;
  p_.state.InertiaSet = true;
  p_.state.TitleName = name;
  p_.state.FileName = name;
  known_ = content;
  ++fileRevision_;
  p_.state.Happened.Tell("Opened " + FileNameOf(name), name == unread_ ? ", only in part" : "");
}

void ConfigFiles::ReadData(const std::string& content) {
  const MotorRecord row = ReadSettingsFile(
      content, p_.settings,
      InTheirLists({.SelectModel =
                        [this](Integer index) {
                          p_.state.ModelIndex = index;
                          p_.state.Drive.ListMoved(false);  // also where it stood there already
                        },
                    .SelectPort =
                        [this](Integer index) {
                          if (SelectPort) SelectPort(index);
                        }}));
  if (AddMotorIfMissing) AddMotorIfMissing(row);
  ShowModeName(p_.state, p_.settings);
  if (SummarizeAll) SummarizeAll();
}

}  // namespace kavr6
