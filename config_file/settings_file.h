// The text of a configuration file: the settings as a fixed sequence of lines without keys. The place of a
// value gives its meaning; the version on the first line says which lines a reader may expect.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/settings_fields.h"

namespace kavr6 {

struct VersionTriple {
  Integer major = 0;
  Integer minor = 0;
  Integer build = 0;
  bool operator==(const VersionTriple&) const = default;
};

/// The version on a file's first line. RuntimeError when a part of it is no number.
VersionTriple ParseVersion(std::string_view text);

/// The same, of a whole file.
VersionTriple VersionOfFile(std::string_view content);
/// Whether files of that version say what the field is. Of the motor block that goes for both motors.
bool FileHolds(const VersionTriple& version, const SettingsField& field);

/// What a file holds beside the settings.
struct FileHead {
  std::string version;  ///< of the program that writes; not empty
  Integer model;        ///< row of ModelList
  Integer port;         ///< row of CommList
};

/// The whole file: lines ended by CR LF. `row` is the catalogue motor that is selected. RuntimeError for a
/// number that cannot be written.
std::string WriteSettingsFile(const FileHead& head, const Settings& settings, const MotorRecord& row);

/// Takes what is read, at the moment when it is read. A RuntimeError that one of them raises ends the reading
/// as a bad value would.
struct FileReadActions {
  std::function<void(Integer row)> SelectModel;
  std::function<void(Integer row)> SelectPort;
};

/// The same, told of no row but -1 and those that the lists have.
FileReadActions InTheirLists(const FileReadActions& actions);

/// Reads a file into `settings`, value by value, and returns the catalogue motor that the file brings. A
/// value that is missing, of the wrong form or out of range is a RuntimeError whose text names the line: all
/// values before it have been stored then, and the others are as they were. Fields that a file of this
/// version does not hold keep their values, but MaxVoltsPct becomes 100. Behind the first line the values
/// count, not the lines they stand on; the file may go on behind the last value.
MotorRecord ReadSettingsFile(std::string_view content, Settings& settings, const FileReadActions& actions);

}  // namespace kavr6
