#include "core/program/port_notes.h"

#include <string>

namespace kavr6 {
namespace {

/// `name`: the port's, which on Windows is its device's too.
std::string NoteOf(const PortLook& look, const std::string& name) {
  const std::string device = look.device == name ? "" : look.device + ", ";
  switch (look.state) {
    case PortLook::State::NoDevice:
      return "no device";
    case PortLook::State::NotThere:
      return device + "not there";
    case PortLook::State::There:
      return device + "there";
    case PortLook::State::InUse:
      return device + "in use by another program";
    case PortLook::State::NotAllowed:
      return device + "no permission";
    case PortLook::State::Open:
      return device + "open";
  }
  return {};
}

}  // namespace

PortNotes::PortNotes(ListBox& list, MSComm& comm) : list_(list), comm_(comm) {
  list_.DropDown.Set([this] {
    watch_ = comm_.WatchDevices(DeviceNews::Users, [this] { Tell(); });
    Tell();
  });
  list_.CloseUp.Set([this] { watch_.reset(); });
}

void PortNotes::Tell() {
  for (int row = 0; row < list_.Count(); ++row)
    list_.SetItemNote(row, NoteOf(comm_.Look(row + 1), list_.Item(row)));
}

}  // namespace kavr6
