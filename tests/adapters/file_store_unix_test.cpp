// Rights, links, limits and sudden ends as Unix has them.
#include <csignal>
#include <random>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/adapters/disk_files_bench.h"

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

TEST_F(DiskFilesTest, WhatIsNoOrdinaryFileIsNotWaitedFor) {
  ::mkfifo(In("fifo").c_str(), 0600);
  EXPECT_EQ(ErrorOf([&] { files.Read(In("fifo")); }), "75 #fifo is not an ordinary file");
  EXPECT_EQ(ErrorOf([&] { files.Replace(In("fifo"), "new"); }), "75 #fifo is not an ordinary file");
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

TEST_F(DiskFilesTest, RightsAndLinksAreKept) {
  files.Replace(In("caf\u00e9"), "old");
  ::chmod(In("caf\u00e9").c_str(), 0640);
  fs::create_symlink("caf\u00e9", In("near"));
  fs::create_symlink(In("near"), In("far"));
  files.Replace(In("far"), "new");
  EXPECT_EQ(files.Read(In("caf\u00e9")), "new");
  EXPECT_EQ(files.Read(In("far")), "new");
  EXPECT_EQ(fs::status(In("caf\u00e9")).permissions(), fs::perms(0640));
  EXPECT_TRUE(fs::is_symlink(In("far")) && fs::is_symlink(In("near")));
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
