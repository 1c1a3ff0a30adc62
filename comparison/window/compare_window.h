// The window that shows in which settings the screen differs from a drive or a file.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "comparison/comparison.h"
#include "config_file/config_files.h"
#include "image/transfers.h"
#include "link/drive_identity.h"
#include "motor/motor_table.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/grid.h"

namespace kavr6 {

/// What the comparison works with; all of it outlives the window.
struct CompareParts {
  const Form& over;
  DriveLine line;
  const Settings& settings;
  const MotorTable& motorTable;
  DriveIdentity& identity;
  Transfers& transfers;
  ConfigFiles& files;
};

/// Window "CompareWindow". Drive or file are read first; only when they have been read whole it opens, and
/// nothing has changed on the screen by then. What takes settings over or sends them is the main screen's own
/// road, with its questions.
class CompareWindow : public Form {
 public:
  explicit CompareWindow(const CompareParts& parts);

  Label Result{*this, "Result"};
  Label Unsendable{*this, "Unsendable",
                   "A setting on the screen does not fit a drive: all are compared as they stand."};
  Grid Table{*this, "Table", 0, 5};
  CheckBox chkShowEqual{*this, "chkShowEqual"};
  Button Copy{*this, "Copy", "Copy"};
  Button TakeFromDrive{*this, "TakeFromDrive", "Take from Drive"};
  Button TakeFromFile{*this, "TakeFromFile", "Take from File"};
  Button Download{*this, "Download", "Download"};
  Button OK{*this, "OK", "Close", Button::Role::Cancel};

  /// Each returns when the window has been closed again, or has not opened. While one of them reads, another
  /// call does nothing.
  void CompareWithDrive();
  void CompareWithFile();

 protected:
  void Load() override { CenterOn(p_.over, *this); }

 private:
  void Once(const std::function<void()>& work);
  bool ReadDrive();
  bool TakeImage(std::span<const Byte> image);
  bool ReadFile(const std::string& name);
  void TakeFile(const std::string& name, const std::string& content);
  void OpenWith(bool drive);
  void Transfer(const std::function<void()>& road);
  void OpenTheFile();
  ComparedSide Screen() const;
  std::string OtherName() const;
  void ShowComparison();
  void FillTable();
  std::string Text() const;

  CompareParts p_;
  bool busy_ = false;
  std::optional<ComparedSide> other_;  // nothing: no longer known
  std::string file_;                   // empty: a drive
  Comparison comparison_;
};

}  // namespace kavr6
