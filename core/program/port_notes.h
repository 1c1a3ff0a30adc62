// What stands beside the rows of the port list.
#pragma once

#include <memory>

#include "platform/controls.h"
#include "platform/mscomm.h"

namespace kavr6 {

/// Tells beside each row of an open port list which device it is and whether it can be had, and keeps that
/// true while the list is open. A closed list is not looked after.
class PortNotes {
 public:
  /// The list's notices of opening and closing are for this object. Row 0 is port 1.
  PortNotes(ListBox& list, MSComm& comm);
  PortNotes(const PortNotes&) = delete;
  PortNotes& operator=(const PortNotes&) = delete;

 private:
  void Tell();

  ListBox& list_;
  MSComm& comm_;
  std::unique_ptr<DeviceWatch> watch_;
};

}  // namespace kavr6
