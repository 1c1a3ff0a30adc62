#include "core/program/port_notes.h"

#include <string>

namespace kavr6 {
namespace {

std::string NoteOf(const PortLook& look) {
  switch (look.state) {
    case PortLook::State::NoDevice:
      return "no device";
    case PortLook::State::NotThere:
      return look.device + ", not there";
    case PortLook::State::There:
      return look.device + ", there";
    case PortLook::State::InUse:
      return look.device + ", in use by another program";
    case PortLook::State::NotAllowed:
      return look.device + ", no permission";
    case PortLook::State::Open:
      return look.device + ", open";
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
  for (int row = 0; row < list_.Count(); ++row) list_.SetItemNote(row, NoteOf(comm_.Look(row + 1)));
}

}  // namespace kavr6
