#include "help/command_list.h"

namespace kavr6 {

CommandList::CommandList(Desktop& desktop, const std::string& name, std::span<const CommandRow> rows)
    : Form(desktop, name),
      cmd(*this, "cmd", static_cast<int>(rows.size())),
      desc(*this, "desc", static_cast<int>(rows.size())) {
  for (int row = 0; row < cmd.Count(); ++row) {
    cmd[row].SetCaption(std::string(rows[static_cast<std::size_t>(row)].cmd));
    desc[row].SetCaption(std::string(rows[static_cast<std::size_t>(row)].desc));
  }
  OK.Focus();
}

void CommandList::Opens(Button& button, Form& window) {
  button.Clicked.Set([this, &window] {
    PlaceBeside(*this, window);
    window.Show();
  });
}

}  // namespace kavr6
