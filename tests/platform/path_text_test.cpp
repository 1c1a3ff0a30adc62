#include "platform/path_text.h"

#include <fstream>
#include <random>

#include <gtest/gtest.h>

namespace kavr6 {
namespace {

TEST(PathText, IsUtf8WithTheSystemsStrokesAndLeadsToTheSameFile) {
  const std::string folder =
      testing::TempDir() + std::to_string(std::random_device()()) + "Gr\u00f6\u00dfe \u4e09";
  const std::string file = folder + "/Achse \u00fc.cnf";
  std::filesystem::create_directories(PathOf(folder));
  std::ofstream(PathOf(file)) << "there";
  std::string found;
  for (const auto& entry : std::filesystem::directory_iterator(PathOf(folder)))
    found = PathText(entry.path());
  const std::string stroke(1, static_cast<char>(std::filesystem::path::preferred_separator));
  EXPECT_TRUE(found.ends_with("Gr\u00f6\u00dfe \u4e09" + stroke + "Achse \u00fc.cnf")) << found;
  EXPECT_EQ(FileNameOf(found), "Achse \u00fc.cnf");
  EXPECT_EQ(PathOf(FolderOf(found)), PathOf(folder));
  std::filesystem::remove_all(PathOf(folder));
}

}  // namespace
}  // namespace kavr6
