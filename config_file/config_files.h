// Opening and saving configuration files.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/drive_state.h"
#include "core/settings.h"
#include "motor/motor_table.h"
#include "platform/desktop.h"
#include "platform/file_store.h"
#include "platform/runtime_error.h"

namespace kavr6 {

/// What the file commands work on; all of it outlives them.
struct ConfigFilesParts {
  Desktop& desk;
  DriveState& state;
  Settings& settings;
  MotorTable& motorTable;
  FileStore& files;
};

/// Whether what would be saved is what stands in the file.
enum class InFile {
  NoFile,   ///< the settings have no file yet
  Unknown,  ///< it cannot be read, or nobody has looked
  No,
  Yes,
  Foreign,  ///< another program has changed it since it was last read or written here
};

/// The commands Open, Save and Save As of the main screen.
class ConfigFiles {
 public:
  explicit ConfigFiles(const ConfigFilesParts& parts) : p_(parts) {}

  FileDialogState SaveFile;

  /// Selects a row of the port list as if the user had.
  std::function<void(int row)> SelectPort;
  std::function<void(const MotorRecord&)> AddMotorIfMissing;
  std::function<void()> SummarizeAll;
  /// Called when all settings, or some of them, come from elsewhere now.
  std::function<void()> SettingsReplaced;

  /// Asks before changes are thrown away, then for the file, and reads it. A file that cannot be read to its
  /// end is told in a box and counts as opened all the same.
  void MenuOpen();
  /// The same with a file that the user has chosen already.
  void OpenChosen(const std::string& name);
  /// Saves under the name in use, or as MenuSaveAs without one. A failure is told in a box; the file in place
  /// is then as it was. A file that could not be read to its end, that another program has changed since, or
  /// that cannot be read any more, is not written over without a question.
  void MenuSave();
  void MenuSaveAs();
  /// Saves a copy under a name of the user's choice when the program is about to end with an error: neither
  /// FileName nor Modified change. A failure is told in a box, and another name can be chosen.
  void RescueSettings();

  /// For looking at a file without opening it. The user's choice; empty when he gives up.
  std::string ChooseToRead();
  /// Nothing where it cannot be read.
  std::optional<std::string> ContentOf(const std::string& name) const;
  /// Tell in a box that it cannot be read, or why not to its end.
  void TellNotOpened();
  void TellUnread(const RuntimeError& error);

  /// Grows whenever a file has been read or written here.
  int FileRevision() const { return fileRevision_; }
  /// Compares the settings, byte for byte, with the file as it is now.
  InFile LookAtFile() const;
  /// The settings as the text of a file. RuntimeError for a number that cannot be written.
  std::string FileText() const;
  /// Replaces the settings by what a file holds, with all that goes with it. RuntimeError where it cannot be
  /// read to its end; what stands before that place has been taken then.
  void ReadData(const std::string& content);

 private:
  void DoSave();
  void DoSaveAs();
  bool MayReplaceChanges();
  void OpenFile(const std::string& name);
  bool MayReplaceFile();
  bool AskToReplace(const std::string& why);
  void Saved(const std::string& name);
  void NotSaved(const std::string& name, const std::string& error);
  /// Empty when the user gives up. The next dialog begins where this one ended.
  std::string ChooseFile(FileDialog::Purpose purpose);
  /// What to tell where it went wrong.
  std::optional<std::string> WriteFile(const std::string& name);

  ConfigFilesParts p_;
  int fileRevision_ = 0;
  std::string written_;               // the text of the last save
  std::optional<std::string> known_;  // what the file held when it was last read or written here
  std::string unread_;                // name of a file that could not be read to its end
};

}  // namespace kavr6
