// Paths as the texts of the program: always UTF-8, whatever the system's own encoding, with the system's own
// stroke between folders, for they are shown to people.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kavr6 {

inline std::string PathText(const std::filesystem::path& path) {
  const std::u8string text = std::filesystem::path(path).make_preferred().u8string();
  return {text.begin(), text.end()};
}

inline std::filesystem::path PathOf(std::string_view text) { return std::u8string(text.begin(), text.end()); }

/// The folder that a file is in, and the file's name in it.
inline std::string FolderOf(std::string_view path) { return PathText(PathOf(path).parent_path()); }
inline std::string FileNameOf(std::string_view path) { return PathText(PathOf(path).filename()); }

}  // namespace kavr6
