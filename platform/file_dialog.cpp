#include "platform/file_dialog.h"

#include <filesystem>

namespace kavr6 {

std::string FolderOf(const std::string& name) {
  const std::u8string folder =
      std::filesystem::path(std::u8string(name.begin(), name.end())).parent_path().u8string();
  return {folder.begin(), folder.end()};
}

}  // namespace kavr6
