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
  for (const fs::path& path : paths) {
    const std::string subject = path.parent_path().parent_path().filename().string();
    testing::RegisterTest(subject.c_str(), path.stem().string().c_str(), nullptr, nullptr,
                          path.generic_string().c_str(), 1,
                          [file = path.generic_string()] { return new FromFile(file); });
  }
  return true;
}

[[maybe_unused]] const bool kRegistered = RegisterAll();

}  // namespace
}  // namespace kavr6
