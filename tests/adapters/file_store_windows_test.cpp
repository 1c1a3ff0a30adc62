// Files that another program has open, as Windows has them.
#include <chrono>
#include <thread>

#include <windows.h>

#include "tests/adapters/disk_files_bench.h"

namespace kavr6 {
namespace {

TEST_F(DiskFilesTest, FileThatIsOpenElsewhereForAMomentIsReplacedAllTheSame) {
  files.Replace(In("x"), "old");
  const auto open = [this] {
    return ::CreateFileW(At("x").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  };
  HANDLE elsewhere = open();
  ASSERT_NE(elsewhere, INVALID_HANDLE_VALUE);
  EXPECT_EQ(ErrorOf([this] { files.Replace(In("x"), "new"); }),
            "75 access denied; another program may have the file open");
  ::CloseHandle(elsewhere);
  EXPECT_EQ(files.Read(In("x")), "old");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(At("")), {}), 1);

  elsewhere = open();
  std::thread scanner([elsewhere] {
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    ::CloseHandle(elsewhere);
  });
  EXPECT_EQ(ErrorOf([this] { files.Replace(In("x"), "new"); }), "none");
  scanner.join();
  EXPECT_EQ(files.Read(In("x")), "new");
}

}  // namespace
}  // namespace kavr6
