// The motor catalogue as text, and the database file made from it.
//
// The text is CSV without quotes: a line with the names of all columns of the motor table in their order,
// then one motor a line. Numbers have a decimal point. Part numbers are unique, and "PartNoX" repeats them.
#pragma once

#include <filesystem>
#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/table_access.h"

namespace kavr6 {

/// A line of the catalogue that cannot be taken.
class CatalogueError : public std::runtime_error {
 public:
  CatalogueError(int line, const std::string& reason)
      : std::runtime_error("line " + std::to_string(line) + ": " + reason) {}
};

/// The values of one motor, in the order of kMotorColumns.
using CatalogueRow = std::vector<Variant>;

/// CatalogueError at the first line that is not as it must be, and without any motor.
std::vector<CatalogueRow> ReadCatalogue(std::istream& text);

/// Writes the motor table with these rows and its index; an older file of that name is replaced, as a whole.
void WriteMotorFile(const std::vector<CatalogueRow>& rows, const std::filesystem::path& file);

/// Makes a motor table without rows, where there is no file of that name; several programs may do so at once.
void EnsureMotorFile(const std::filesystem::path& file);

}  // namespace kavr6
