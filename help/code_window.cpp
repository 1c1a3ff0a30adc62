#include "help/code_window.h"

namespace kavr6 {
namespace {

// Its place beside another window is worked out before the window is built. The height follows the lines.
constexpr int kWidthTwips = 4350;
constexpr int kLeastHeightTwips = 1500;

/// What has no text takes no room.
void Fill(Label& label, std::string_view text) {
  label.SetCaption(std::string(text));
  label.SetVisible(!text.empty());
}

}  // namespace

CodeWindow::CodeWindow(Desktop& desktop, const CodeTable& table) : Form(desktop, std::string(table.name)) {
  SetCaption(std::string(table.title));
  Title.SetCaption(std::string(table.title));
  Fill(Heading, table.heading);
  for (int i = 0; i < line.Count(); ++i) Fill(line[i], table.lines[static_cast<std::size_t>(i)]);
  Resize(kWidthTwips, kLeastHeightTwips);
  OK.Clicked.Set([this] { Hide(); });
}

}  // namespace kavr6
