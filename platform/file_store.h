// Files of the user's, read and replaced as a whole.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kavr6 {

/// Names are full paths in UTF-8. Every failure is a RuntimeError whose text names the cause, without a final
/// point, as it is to stand inside a sentence.
class FileStore {
 public:
  /// A file is read up to this many bytes; no file of the program's comes near it.
  static constexpr std::size_t kMostBytes = std::size_t{16} * 1024 * 1024;
  /// Numbers of the errors of Read where there is no such file, or not even its folder.
  static constexpr int kNoFile = 53;
  static constexpr int kNoFolder = 76;

  virtual ~FileStore() = default;
  virtual std::string Read(const std::string& name) const = 0;
  /// Gives the file of that name this content. At every moment, also when the process or the machine is
  /// stopped, the file holds either all of the old content or all of the new. When it fails the old one
  /// stays.
  virtual void Replace(const std::string& name, std::string_view content) = 0;
};

}  // namespace kavr6
