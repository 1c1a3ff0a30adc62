#include "adapters/qt/base/program_folders.h"

#include <QCoreApplication>
#include <QStandardPaths>

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

constexpr const char* kName = "kavr6";

}  // namespace

ProgramFolders FindProgramFolders() {
  return FoldersOf(QCoreApplication::applicationDirPath().toStdU16String());
}

ProgramFolders FoldersOf(const fs::path& program) {
  const QString home = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  const fs::path own = fs::path(home.toStdU16String()) / kName;
  const fs::path above = program.parent_path();
  const fs::path shared = above / "share" / kName;
  std::error_code error;
  if (fs::is_directory(shared, error)) return {shared, own, above / "libexec" / kName, true};
  return {program, own, program, false};
}

}  // namespace kavr6
