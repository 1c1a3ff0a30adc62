// The target folders, what they declare and what they include.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace kavr6::house {

struct Include {
  std::string file;    ///< that includes, as a path from the root
  std::string header;  ///< as it stands there, with its quotes or angle brackets
};

/// A folder that is a target.
struct Folder {
  std::string name;
  std::vector<std::string> uses;  ///< folders it declares
  std::vector<Include> includes;
};

/// The folders in the order in which the build declares them, with the includes of all their sources.
std::vector<Folder> ReadHouse(const std::filesystem::path& root, const std::filesystem::path& declarations);

/// The headers and sources of those folders, as paths from the root.
std::set<std::string> FilesOf(const std::filesystem::path& root, const std::vector<Folder>& house);

/// What is wrong, one sentence for each fault, in the order of the house.
std::vector<std::string> Complaints(const std::vector<Folder>& house, const std::set<std::string>& files);

}  // namespace kavr6::house
