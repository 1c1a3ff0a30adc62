// Opening and saving configuration files.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/main_screen.h"
#include "core/settings.h"
#include "motor/motor_table.h"
#include "platform/file_dialog.h"
#include "platform/file_store.h"

namespace kavr6 {

/// The commands Open, Save and Save As of the main screen. All of it outlives this.
class ConfigFiles {
 public:
  ConfigFiles(MainScreen& screen, Settings& settings, MotorTable& motorTable, FileStore& files)
      : screen_(screen), settings_(settings), motorTable_(motorTable), files_(files) {}

  std::function<void(const MotorRecord&)> AddMotorIfMissing;
  std::function<void()> SummarizeAll;

  /// Asks before changes are thrown away, then for the file, and reads it. A file that cannot be read to its
  /// end is told in a box and counts as opened all the same.
  void MenuOpen();
  /// Saves under the name in use, or as MenuSaveAs without one. A failure is told in a box; the file in place
  /// is then as it was.
  void MenuSave();
  void MenuSaveAs();

 private:
  void DoSave();
  void DoSaveAs();
  /// Empty when the user gives up. The next dialog begins where this one ended.
  std::string ChooseFile(FileDialog::Purpose purpose);
  /// The text of the error, if there was one.
  std::optional<std::string> WriteFile(const std::string& name);
  std::string FileText() const;
  void ReadData(const std::string& content);
  void ShowError(const std::string& text);

  MainScreen& screen_;
  Settings& settings_;
  MotorTable& motorTable_;
  FileStore& files_;
};

}  // namespace kavr6
