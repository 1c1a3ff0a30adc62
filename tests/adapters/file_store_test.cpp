#include "adapters/qt/base/file_store.h"

#include <QTemporaryDir>
#include <csignal>
#include <filesystem>
#include <random>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "adapters/qt/base/text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

class DiskFilesTest : public testing::Test {
 protected:
  std::string In(const std::string& name) const { return folder_.path().toStdString() + "/" + name; }
  /// Number and text of the error, with # for the folder of the test.
  std::string ErrorOf(const std::function<void()>& work) const {
    try {
      work();
    } catch (const RuntimeError& error) {
      std::string text = std::to_string(error.Number()) + " " + error.what();
      if (const auto at = text.find(In("")); at != std::string::npos) text.replace(at, In("").size(), "#");
      return text;
    }
    return "none";
  }
  DiskFiles files;

 private:
  QTemporaryDir folder_;
};

TEST_F(DiskFilesTest, FailureNamesItsCauseAndLeavesWhatWasThere) {
  fs::create_directory(In("folder"));
  ::mkfifo(In("fifo").c_str(), 0600);
  files.Replace(In("locked"), "old");
  ::chmod(In("locked").c_str(), 0444);
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"none", "53 the file #none is not there", "none"},
      {"gone/x", "76 the folder #gone is not there", "76 the folder #gone is not there"},
      {"locked/x", "76 the folder #locked is not there", "76 the folder #locked is not there"},
      {"folder", "75 #folder is a folder", "75 #folder is a folder"},
      {"fifo", "75 #fifo is not an ordinary file", "75 #fifo is not an ordinary file"},
      {"locked", "none", "75 #locked is read-only"}};
  for (const auto& [name, reading, saving] : cases) {
    EXPECT_EQ(ErrorOf([&, n = name] { files.Read(In(n)); }), reading);
    EXPECT_EQ(ErrorOf([&, n = name] { files.Replace(In(n), "new"); }), saving);
  }
  EXPECT_EQ(files.Read(In("locked")), "old");
}

TEST_F(DiskFilesTest, WordsOfTheSystemGoIntoASentenceWithoutTheirFullStop) {
  EXPECT_EQ(WithoutFullStop("The volume is gone.\r\n"), "The volume is gone");
  EXPECT_EQ(WithoutFullStop("No space left on device"), "No space left on device");
}

TEST_F(DiskFilesTest, FileThatCannotBeWrittenToItsEndKeepsItsOldContentAndLeavesNothingBeside) {
  std::signal(SIGXFSZ, SIG_IGN);
  files.Replace(In("x"), "old");
  rlimit limit{};
  ::getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit low{1000, limit.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &low);
  EXPECT_EQ(ErrorOf([&] { files.Replace(In("x"), std::string(5000, 'n')); }), "57 file too large");
  ::setrlimit(RLIMIT_FSIZE, &limit);
  EXPECT_EQ(files.Read(In("x")), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(In("")), {}), 1);
}

TEST_F(DiskFilesTest, ContentRightsAndLinksAreKept) {
  const std::string content("\0\r\n\xE9", 4);
  files.Replace(In("caf\u00e9"), "old");
  ::chmod(In("caf\u00e9").c_str(), 0640);
  fs::create_symlink("caf\u00e9", In("near"));
  fs::create_symlink(In("near"), In("far"));
  files.Replace(In("far"), content);
  EXPECT_EQ(files.Read(In("caf\u00e9")), content);
  EXPECT_EQ(files.Read(In("far")), content);
  EXPECT_EQ(fs::status(In("caf\u00e9")).permissions(), fs::perms(0640));
  EXPECT_TRUE(fs::is_symlink(In("far")) && fs::is_symlink(In("near")));
  fs::resize_file(In("far"), DiskFiles::kMostBytes + 1);
  EXPECT_EQ(files.Read(In("far")).size(), DiskFiles::kMostBytes);
}

[[noreturn]] void SaveForEver(DiskFiles& files, const std::string& name, const std::string (&contents)[2],
                              int round) {
  try {
    for (;; ++round) files.Replace(name, contents[round % 2]);
  } catch (const RuntimeError&) {
    ::_exit(1);
  }
}

TEST_F(DiskFilesTest, FileIsWholeWheneverTheProcessIsKilled) {
  const std::string contents[2] = {std::string(3000, 'a'), std::string(1'000'000, 'b')};
  files.Replace(In("x"), contents[0]);
  std::minstd_rand random(1);
  bool held[2] = {};
  // On a busy machine hardly a child comes to the end of its first saving.
  for (int round = 0; round < 200 || (round < 2000 && !(held[0] && held[1])); ++round) {
    const pid_t child = ::fork();
    if (child == 0) SaveForEver(files, In("x"), contents, round);
    ::usleep(static_cast<useconds_t>(random() % 8000));
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the saving has failed";
    const std::string found = files.Read(In("x"));
    ASSERT_TRUE(found == contents[0] || found == contents[1]) << found.size() << " bytes";
    held[found == contents[1]] = true;
  }
  EXPECT_TRUE(held[0] && held[1]);
}

}  // namespace
}  // namespace kavr6
