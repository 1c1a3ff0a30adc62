#include "adapters/qt/base/text.h"
#include "tests/adapters/disk_files_bench.h"

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

TEST_F(DiskFilesTest, FailureNamesItsCauseAndLeavesWhatWasThere) {
  using enum fs::perms;
  fs::create_directory(At("folder"));
  files.Replace(In("locked"), "old");
  fs::permissions(At("locked"), owner_read | group_read | others_read);
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"none", "53 the file #none is not there", "none"},
      {"gone/x", "76 the folder #gone is not there", "76 the folder #gone is not there"},
      {"locked/x", "76 the folder #locked is not there", "76 the folder #locked is not there"},
      {"folder", "75 #folder is a folder", "75 #folder is a folder"},
      {"locked", "none", "75 #locked is read-only"}};
  for (const auto& [name, reading, saving] : cases) {
    EXPECT_EQ(ErrorOf([&, n = name] { files.Read(In(n)); }), reading);
    EXPECT_EQ(ErrorOf([&, n = name] { files.Replace(In(n), "new"); }), saving);
  }
  EXPECT_EQ(files.Read(In("locked")), "old");
}

TEST_F(DiskFilesTest, ContentIsKeptToTheByteUnderAnyName) {
  const std::string content("\0\r\n\xE9", 4);
  const std::string name = "Gr\u00f6\u00dfe \u4e09.cnf";
  files.Replace(In(name), "old");
  files.Replace(In(name), content);
  EXPECT_EQ(files.Read(In(name)), content);
  EXPECT_EQ(fs::file_size(At(name)), 4U);
  fs::resize_file(At(name), DiskFiles::kMostBytes + 1);
  EXPECT_EQ(files.Read(In(name)).size(), DiskFiles::kMostBytes);
}

TEST_F(DiskFilesTest, WordsOfTheSystemGoIntoASentenceWithoutTheirFullStop) {
  EXPECT_EQ(WithoutFullStop("The volume is gone.\r\n"), "The volume is gone");
  EXPECT_EQ(WithoutFullStop("No space left on device"), "No space left on device");
}

}  // namespace
}  // namespace kavr6
