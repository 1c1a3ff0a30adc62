// Where the program finds its own data and the user's.
#pragma once

#include <filesystem>

namespace kavr6 {

/// The program is installed as bin/, libexec/kavr6/ and share/kavr6/ below any one folder, or all of it lies
/// in one folder.
struct ProgramFolders {
  std::filesystem::path data;     ///< motor table and help pages
  std::filesystem::path own;      ///< the user's motors and pinned ports; it need not be there
  std::filesystem::path helpers;  ///< programs that it starts
  bool installed = false;         ///< the next installation replaces `data`, so nothing is added to it
};

/// Of the running program. Needs an application object.
ProgramFolders FindProgramFolders();
/// Of a program in the folder `program`.
ProgramFolders FoldersOf(const std::filesystem::path& program);

}  // namespace kavr6
