// Every target folder includes what it declares and nothing else.
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

namespace kavr6 {
namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;
/// Headers as they stand in each file, with their quotes or angle brackets. Paths go from the root.
using Includes = std::map<std::string, std::vector<std::string>>;

/// The target folders in the order in which the build declares them.
struct House {
  std::map<std::string, Names> uses;
  std::vector<std::string> order;

  explicit House(std::istream&& declarations) {
    for (std::string folder; std::getline(declarations >> std::ws, folder, ':');) {
      if (!uses.contains(folder)) order.push_back(folder);
      std::string line;
      std::getline(declarations, line);
      std::istringstream words(line);
      for (std::string used; words >> used;) uses[folder].insert(used);
      uses[folder];
    }
  }
  /// The innermost target folder of a file, or "".
  std::string FolderOf(fs::path file) const {
    do file = file.parent_path();
    while (!file.empty() && !uses.contains(file.generic_string()));
    return file.generic_string();
  }
};

/// What is wrong with an include of a file in `folder`, or "". Adds the folder that it uses.
std::string IncludeFault(const House& house, const Includes& files, const std::string& folder,
                         const std::string& header, Names& used) {
  const bool toolkit = header.starts_with("<Q") || header == "<sqlite3.h>";
  if (toolkit && !folder.starts_with("adapters/") && !folder.starts_with("apps/"))
    return ", a toolkit's header";
  const std::string name = header.substr(1, header.size() - 2);
  const bool generated =
      name.find('/') == std::string::npos && (name.starts_with("ui_") || name.ends_with(".moc"));
  if (header[0] == '<' || generated) return "";
  const std::string owner = house.FolderOf(name);
  if (owner.empty()) return ", which belongs to no target";
  used.insert(owner);
  if (!files.contains(name)) return ", which does not exist";
  if (owner == folder || house.uses.at(folder).contains(owner)) return "";
  return ", but " + folder + " does not declare " + owner;
}

/// One sentence for each fault.
std::string Complaints(const House& house, const Includes& files) {
  std::string complaints;
  std::map<std::string, Names> used;
  for (const auto& [file, headers] : files)
    for (const std::string& header : headers) {
      const std::string folder = house.FolderOf(file);
      const std::string fault = IncludeFault(house, files, folder, header, used[folder]);
      if (!fault.empty()) complaints += file + " includes " + header + fault + ". ";
    }
  Names before;
  for (const std::string& folder : house.order) {
    for (const std::string& name : house.uses.at(folder)) {
      const std::string sentence = folder + " declares " + name;
      if (!before.contains(name)) complaints += sentence + ", which does not stand before it. ";
      if (!used[folder].contains(name)) complaints += sentence + " but includes nothing of it. ";
    }
    before.insert(folder);
  }
  return complaints;
}

TEST(House, EveryTargetIncludesWhatItDeclaresAndNothingElse) {
  const House house{std::ifstream(KAVR6_HOUSE)};
  Includes files;
  for (const std::string& folder : house.order)
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(KAVR6_SOURCE) / folder)) {
      const fs::path kind = entry.path().extension();
      if (kind != ".h" && kind != ".cpp") continue;
      std::vector<std::string>& headers =
          files[entry.path().lexically_relative(KAVR6_SOURCE).generic_string()];
      headers.clear();
      std::ifstream source(entry.path());
      for (std::string line; std::getline(source, line);)
        if (line.starts_with("#include ")) headers.push_back(line.substr(9, line.find(' ', 9) - 9));
    }
  EXPECT_GT(files.size(), 150U) << "the sources were not read";
  EXPECT_EQ(Complaints(house, files), "");
}

TEST(House, FaultsAreNamed) {
  const std::string declared = "low: \nlow/inner: low\napps/high: low/inner\n";
  const Includes files{{"low/a.h", {"<string>"}},
                       {"low/a.cpp", {"\"low/a.h\""}},
                       {"low/inner/b.h", {"\"low/a.h\""}},
                       {"apps/high/c.cpp", {"\"low/inner/b.h\"", "<QString>", "\"ui_C.h\"", "\"c.moc\""}},
                       {"apps/high/c.h", {}}};
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"", "", ""},
      {"low/a.h", "\"low/inner/b.h\"", ", but low does not declare low/inner. "},
      // What a used folder uses is not declared by that.
      {"apps/high/c.h", "\"low/a.h\"", ", but apps/high does not declare low. "},
      {"low/inner/b.h", "\"low/d.h\"", ", which does not exist. "},
      {"low/inner/b.h", "\"lower/a.h\"", ", which belongs to no target. "},
      {"low/inner/b.h", "\"b.h\"", ", which belongs to no target. "},
      {"low/inner/b.h", "<QtGlobal>", ", a toolkit's header. "},
      {"low/a.cpp", "<sqlite3.h>", ", a toolkit's header. "}};
  for (const auto& [file, header, fault] : cases) {
    Includes spoilt = files;
    if (*file != '\0') spoilt[file].push_back(header);
    const std::string sentence = std::string(file) + " includes " + header;
    EXPECT_EQ(Complaints(House(std::istringstream(declared)), spoilt), *file == '\0' ? "" : sentence + fault);
  }
  const House house(std::istringstream(declared + "low: low/inner\napps/high: low\nlow/inner: low/inner\n"));
  EXPECT_EQ(Complaints(house, files),
            "low declares low/inner, which does not stand before it. "
            "low declares low/inner but includes nothing of it. "
            "low/inner declares low/inner, which does not stand before it. "
            "low/inner declares low/inner but includes nothing of it. "
            "apps/high declares low but includes nothing of it. ");
}

}  // namespace
}  // namespace kavr6
