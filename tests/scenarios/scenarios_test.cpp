// Every transcript below tests/ is a test of its own: its folder's name and its own.
#include <algorithm>
#include <filesystem>
#include <vector>

#include "tests/support/scenario.h"

namespace kavr6 {
namespace {

class FromFile : public testing::Test {
 public:
  explicit FromFile(std::string path) : path_(std::move(path)) {}
  void TestBody() override { Scenario::Play(path_); }

 private:
  std::string path_;
};

bool RegisterAll() {
  namespace fs = std::filesystem;
  std::vector<fs::path> paths;
  for (const auto& folder : fs::directory_iterator(KAVR6_SOURCE "/tests")) {
    if (!fs::is_directory(folder.path() / "scenarios")) continue;
    for (const auto& entry : fs::directory_iterator(folder.path() / "scenarios"))
      if (entry.path().extension() == ".txt") paths.push_back(entry.path());
  }
  std::ranges::sort(paths);
  for (const auto& path : paths)
    testing::RegisterTest(path.parent_path().parent_path().filename().c_str(), path.stem().c_str(), nullptr,
                          nullptr, path.c_str(), 1, [path = path.string()] { return new FromFile(path); });
  return true;
}

[[maybe_unused]] const bool kRegistered = RegisterAll();

}  // namespace
}  // namespace kavr6
