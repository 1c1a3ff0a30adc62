// Whether drive and file hold what the screen shows.
#pragma once

#include <optional>
#include <string>

#include "config_file/config_files.h"
#include "core/drive_state.h"
#include "core/settings.h"
#include "motor/motor_table.h"
#include "platform/desktop.h"

namespace kavr6 {

enum class InDrive { Unknown, No, Yes };

/// What is compared; all of it outlives the watch.
struct SettingsWatchParts {
  Desktop& desk;
  DriveState& state;
  const Settings& settings;
  const MotorTable& motorTable;
  const ConfigFiles& files;
};

/// Looks behind each event whether anything has changed that the answers hang on, and compares anew when the
/// program has been idle for a moment. Nothing ticks, and nothing is asked of the drive. A file that another
/// program changes is noticed when a window of the program comes to the front, or the user comes back to it.
class SettingsWatch {
 public:
  explicit SettingsWatch(const SettingsWatchParts& parts) : p_(parts) {}
  SettingsWatch(const SettingsWatch&) = delete;
  SettingsWatch& operator=(const SettingsWatch&) = delete;
  ~SettingsWatch() { p_.desk.Cancel(comparing_); }

  /// An event has been dealt with.
  void Look();
  /// The file may have been changed by others.
  void CompareSoon();

  /// Unknown at once when it becomes so; a yes or no is as old as the last idle moment.
  InDrive Drive() const {
    return comparedImage_ == p_.state.Drive.HeldRevision() ? inDrive_ : InDrive::Unknown;
  }
  /// Unknown too between another drive, or the same as new, and the next comparison.
  InFile File() const;
  /// Raised after each comparison.
  Event<> Compared;

 private:
  /// All that a comparison depends on and that its own answers do not show.
  struct Ground {
    Settings settings;
    std::optional<MotorRow> motor;
    int model = -1;
    int port = -1;
    std::string file;
    std::string front;
    int fileRevision = 0;
    int image = 0;
    int upsets = 0;
    bool operator==(const Ground&) const = default;
  };
  bool Moved();
  void Compare();
  InDrive CompareImages() const;

  SettingsWatchParts p_;
  Ground ground_;
  InDrive inDrive_ = InDrive::Unknown;
  InFile inFile_ = InFile::NoFile;
  int comparedImage_ = 0;
  int comparedUpsets_ = 0;
  Scheduler::TaskId comparing_ = 0;
};

}  // namespace kavr6
