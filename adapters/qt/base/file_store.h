// The user's files on the machine's disks.
#pragma once

#include "platform/file_store.h"

namespace kavr6 {

class DiskFiles : public FileStore {
 public:
  std::string Read(const std::string& name) const override;
  void Replace(const std::string& name, std::string_view content) override;
};

}  // namespace kavr6
