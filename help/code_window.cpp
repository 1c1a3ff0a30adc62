#include "help/code_window.h"

namespace kavr6 {
namespace {

// Its place beside another window is worked out before the window is built. The height follows the lines.
constexpr int kWidthTwips = 4350;
constexpr int kLeastHeightTwips = 1500;

}  // namespace

CodeWindow::CodeWindow(Desktop& desktop, const CodeTable& table) : Form(desktop, std::string(table.name)) {
  SetCaption(std::string(table.title.substr(0, table.title.find('\n'))));
  Title.SetCaption(std::string(table.title));
  Lines.SetCaption(std::string(table.lines));
  Resize(kWidthTwips, kLeastHeightTwips);
  OK.Clicked.Set([this] { Hide(); });
}

}  // namespace kavr6
