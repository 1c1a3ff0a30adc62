#include "tests/house/house.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace kavr6::house {
namespace {

/// The innermost target folder in which a file lies, or null.
template <class House>
auto FolderOf(House& house, const std::string& file) {
  auto found = decltype(house.data()){};
  for (auto& folder : house) {
    const bool holds = file.starts_with(folder.name + "/");
    if (holds && (found == nullptr || folder.name.size() > found->name.size())) found = &folder;
  }
  return found;
}

bool Contains(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool IsToolkit(const std::string& header) { return header.starts_with("<Q") || header == "<sqlite3.h>"; }

bool MayUseToolkits(const std::string& folder) {
  return folder.starts_with("adapters/") || folder.starts_with("apps/");
}

/// Made by the toolkit's own compilers while building.
bool IsGenerated(const std::string& header) {
  return header.find('/') == std::string::npos && (header.starts_with("\"ui_") || header.ends_with(".moc\""));
}

std::vector<Include> IncludesOf(const std::filesystem::path& root, const std::string& file) {
  std::vector<Include> includes;
  std::ifstream in(root / file);
  for (std::string line; std::getline(in, line);) {
    std::istringstream words(line);
    std::string directive, header;
    words >> directive >> header;
    if (directive == "#include") includes.push_back({file, header});
  }
  return includes;
}

/// Says what is wrong with the includes of one folder; collects the folders they use.
class FolderCheck {
 public:
  FolderCheck(const std::vector<Folder>& house, const std::set<std::string>& files, const Folder& folder,
              std::vector<std::string>& complaints)
      : house_(house), files_(files), folder_(folder), complaints_(complaints) {}

  void Run() {
    for (const std::string& used : folder_.uses) CheckDirection(used);
    for (const Include& include : folder_.includes) CheckInclude(include);
    for (const std::string& declared : folder_.uses) {
      if (!used_.contains(declared))
        Complain(folder_.name + " declares " + declared + " but includes nothing of it");
    }
  }

 private:
  void Complain(const std::string& complaint) { complaints_.push_back(complaint); }

  void CheckDirection(const std::string& used) {
    const auto above = std::find_if(house_.begin(), house_.end(), [&](const Folder& other) {
      return other.name == used || &other == &folder_;
    });
    if (above == house_.end() || above->name != used || used == folder_.name)
      Complain(folder_.name + " declares " + used + ", which does not stand before it");
  }

  void CheckInclude(const Include& include) {
    const std::string sentence = include.file + " includes " + include.header;
    if (IsToolkit(include.header) && !MayUseToolkits(folder_.name))
      Complain(sentence + ", a toolkit's header");
    if (!include.header.starts_with('"') || IsGenerated(include.header)) return;
    const std::string header = include.header.substr(1, include.header.size() - 2);
    const Folder* const owner = FolderOf(house_, header);
    if (owner == nullptr) return Complain(sentence + ", which belongs to no target");
    used_.insert(owner->name);
    if (!files_.contains(header)) return Complain(sentence + ", which does not exist");
    if (owner != &folder_ && !Contains(folder_.uses, owner->name))
      Complain(sentence + ", but " + folder_.name + " does not declare " + owner->name);
  }

  const std::vector<Folder>& house_;
  const std::set<std::string>& files_;
  const Folder& folder_;
  std::vector<std::string>& complaints_;
  std::set<std::string> used_;
};

}  // namespace

std::vector<Folder> ReadHouse(const std::filesystem::path& root, const std::filesystem::path& declarations) {
  std::vector<Folder> house;
  std::ifstream in(declarations);
  for (std::string line; std::getline(in, line);) {
    const std::size_t colon = line.find(':');
    if (colon == std::string::npos) throw std::runtime_error("not a declaration: " + line);
    // A folder with a library and a program declares twice.
    const auto same = [&](const Folder& folder) { return folder.name == line.substr(0, colon); };
    auto place = std::find_if(house.begin(), house.end(), same);
    if (place == house.end()) place = house.insert(place, Folder{line.substr(0, colon), {}, {}});
    std::istringstream words(line.substr(colon + 1));
    for (std::string used; words >> used;) {
      if (!Contains(place->uses, used)) place->uses.push_back(used);
    }
  }
  for (const std::string& file : FilesOf(root, house)) {
    for (Include& include : IncludesOf(root, file))
      FolderOf(house, file)->includes.push_back(std::move(include));
  }
  return house;
}

std::set<std::string> FilesOf(const std::filesystem::path& root, const std::vector<Folder>& house) {
  std::set<std::string> files;
  for (const Folder& folder : house) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder.name)) {
      const std::string kind = entry.path().extension().string();
      if (kind == ".h" || kind == ".cpp")
        files.insert(entry.path().lexically_relative(root).generic_string());
    }
  }
  return files;
}

std::vector<std::string> Complaints(const std::vector<Folder>& house, const std::set<std::string>& files) {
  std::vector<std::string> complaints;
  for (const Folder& folder : house) FolderCheck(house, files, folder, complaints).Run();
  return complaints;
}

}  // namespace kavr6::house
