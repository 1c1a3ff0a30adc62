#include "adapters/sqlite/motor_tables.h"

#include "adapters/sqlite/motor_catalogue.h"
#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

void MakeOwnFile(const std::filesystem::path& file) {
  std::error_code error;
  std::filesystem::create_directories(file.parent_path(), error);
  if (error)
    throw RuntimeError(kTableUnreachable, "The folder \"" + PathText(file.parent_path()) +
                                              "\" cannot be made: " + error.message() + ".");
  EnsureMotorFile(file);
}

}  // namespace

MotorTables::MotorTables(const std::filesystem::path& ownFolder, bool installed)
    : both_(common_, {[] { return std::make_unique<SqliteTable>(); }, ownFolder / kOwnMotorFile, MakeOwnFile,
                      installed}) {}

}  // namespace kavr6
