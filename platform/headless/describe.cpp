#include "platform/headless/describe.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "platform/chart.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/grid.h"
#include "platform/page_view.h"
#include "platform/text_area.h"

namespace kavr6 {
namespace {

template <class... Values>
std::string Printed(const char* format, Values... values) {
  std::array<char, 120> text{};
  std::snprintf(text.data(), text.size(), format, values...);
  return text.data();
}

std::string Colour6(Colour colour) { return Printed("%06X", static_cast<unsigned>(colour)); }

void Describe(const ListBox& list, Properties& found) {
  found[""] = list.ListIndex() < 0 ? "none" : std::to_string(list.ListIndex()) + " " + Quoted(list.Text());
  for (int i = 0; i < list.Count(); ++i) {
    std::string row = Quoted(list.Item(i));
    if (list.ItemData(i) != 0) row += " data " + std::to_string(list.ItemData(i));
    if (!list.ItemToolTip(i).empty()) row += " tip " + Quoted(list.ItemToolTip(i));
    if (!list.ItemNote(i).empty()) row += " note " + Quoted(list.ItemNote(i));
    found[Printed("row %02d", i)] = row;
  }
}

void Describe(const Grid& grid, Properties& found) {
  for (int column = 0; column < grid.Columns(); ++column)
    found["column " + std::to_string(column)] = grid.Title(column).empty()
                                                    ? "width " + std::to_string(grid.ColumnWidth(column)) +
                                                          (grid.MergeColumn(column) ? " merged" : "")
                                                    : Quoted(grid.Title(column));
  for (int row = 0; row < grid.Rows(); ++row) {
    std::string text;
    for (int column = 0; column < grid.Columns(); ++column) {
      const Grid::Cell& cell = grid.At(row, column);
      static const std::array<std::string, 3> kAlignments{"", " centred", " right"};
      text += (column > 0 ? " | " : "") + Quoted(cell.text) +
              (cell.picture.empty() ? "" : " picture " + cell.picture) +
              kAlignments.at(static_cast<std::size_t>(cell.alignment));
    }
    if (grid.MergeRow(row)) text += ", merged";
    if (grid.RowHeight(row) != 0) text += ", height " + std::to_string(grid.RowHeight(row));
    found[Printed("row %02d", row)] = text;
  }
}

void Describe(const Slider& slider, Properties& found) {
  const SliderRange& range = slider.Range();
  found[""] = std::to_string(slider.Value());
  found["range"] = Printed("%d to %d by %d, %d, ticks %d", range.min, range.max, range.smallStep,
                           range.largeStep, range.tickSpacing);
}

/// The newest row stands for all.
void Describe(const Chart& chart, Properties& found) {
  std::string& text = found[""];
  text = std::to_string(chart.Shown().size()) + (chart.Held() ? " rows, held" : " rows");
  if (chart.Shown().empty()) return;
  for (const double value : chart.Shown().back().values) text += " | " + NumberOf(value);
}

std::string LightOf(Lamp::State light) {
  static const std::array<std::string, 5> kLights{"off", "green", "yellow", "red", "orange"};
  return kLights.at(static_cast<std::size_t>(light));
}

template <class Kind>
const Kind& As(const Control& control) {
  return dynamic_cast<const Kind&>(control);
}

void DescribeKind(const Control& control, Properties& found) {
  switch (control.Kind()) {
    case ControlKind::TextBox:
      found[""] = Quoted(As<TextBox>(control).Text());
      break;
    case ControlKind::CheckBox:
      found[""] = YesNo(As<CheckBox>(control).Value());
      break;
    case ControlKind::OptionButton:
      found[""] = YesNo(As<OptionButton>(control).Value());
      break;
    case ControlKind::ListBox:
      Describe(As<ListBox>(control), found);
      break;
    case ControlKind::Slider:
      Describe(As<Slider>(control), found);
      break;
    case ControlKind::Button:
      found[""] = Quoted(As<Button>(control).Caption());
      found["mark"] = Quoted(As<Button>(control).Mark());
      break;
    case ControlKind::ImageButton:
      found[""] = As<ImageButton>(control).Picture();
      break;
    case ControlKind::Label:
      found[""] = Quoted(As<Label>(control).Caption());
      break;
    case ControlKind::Picture:
      found[""] = As<Picture>(control).Image();
      found["faded"] = YesNo(As<Picture>(control).Faded());
      break;
    case ControlKind::Lamp:
      found[""] = LightOf(As<Lamp>(control).Light());
      break;
    case ControlKind::Timer:
      found["interval"] = std::to_string(As<Timer>(control).Interval());
      break;
    case ControlKind::Grid:
      Describe(As<Grid>(control), found);
      break;
    case ControlKind::PercentPanel:
      found[""] = std::to_string(As<PercentPanel>(control).FloodPercent()) + " %";
      found["colour"] = Colour6(As<PercentPanel>(control).FloodColor());
      break;
    case ControlKind::ConnectorLine:
      found[""] = Colour6(As<ConnectorLine>(control).BorderColor());
      if (!As<ConnectorLine>(control).Plugged()) found["end"] = "loose";
      break;
    case ControlKind::Chart:
      Describe(As<Chart>(control), found);
      break;
    case ControlKind::MenuItem:
      found[""] = Quoted(As<MenuItem>(control).Caption());
      break;
    case ControlKind::TextArea:
      found[""] = Quoted(As<TextArea>(control).Text());
      break;
    case ControlKind::PageView:
      found[""] = As<PageView>(control).Address();
      found["can go back"] = YesNo(As<PageView>(control).CanGoBack());
      break;
    case ControlKind::Frame:
      if (const std::string& caption = As<Frame>(control).Caption(); !caption.empty())
        found[""] = Quoted(caption);
      break;
    case ControlKind::HotSpot:
      break;
  }
}

}  // namespace

Properties PropertiesOf(const Control& control) {
  Properties found;
  DescribeKind(control, found);
  found["enabled"] = YesNo(control.Enabled());
  found["visible"] = YesNo(control.Visible());
  found["tip"] = Quoted(control.ToolTip());
  return found;
}

Properties PropertiesOf(const Form& form) {
  return {{"caption", Quoted(form.Caption())},
          {"place", Printed("%d, %d", form.Left(), form.Top())},
          {"size", Printed("%d x %d", form.Width(), form.Height())}};
}

std::string Quoted(const std::string& text) {
  std::string line;
  for (const char c : text) {
    if (static_cast<unsigned char>(c) < ' ') {
      line += Printed("\\x%02X", static_cast<unsigned>(c));
    } else {
      line += c;
    }
  }
  return '"' + line + '"';
}

std::string YesNo(bool value) { return value ? "yes" : "no"; }

std::string NumberOf(double value) { return Printed("%.15g", value); }

std::string NumberOf(float value) { return Printed("%.7g", static_cast<double>(value)); }

std::string BytesInWords(std::span<const std::uint8_t> bytes) {
  const auto printable = [](std::uint8_t b) { return b >= ' ' && b <= '~'; };
  // A line of text has something before its end.
  const bool text =
      (bytes.empty() || printable(bytes.front())) &&
      std::ranges::all_of(bytes, [&](std::uint8_t b) { return printable(b) || b == '\r' || b == '\n'; });
  return text ? Quoted({bytes.begin(), bytes.end()}) : Hex(bytes);
}

std::string Hex(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) text += (text.empty() ? "" : " ") + Printed("%02X", unsigned{byte});
  return text;
}

namespace {

/// What Enter and Esc answer, where there is a choice.
std::string KeysOf(const MessageBox& box) {
  if (box.buttons == BoxButtons::Ok) return "";
  const bool yesNo = box.buttons == BoxButtons::YesNo;
  const std::string accept = yesNo ? "Yes" : "OK";
  const std::string refuse = yesNo ? "No" : "Cancel";
  return ", Enter " + (box.careful ? refuse : accept) + ", Esc " + (box.escapeAccepts ? accept : refuse);
}

}  // namespace

std::string InWords(const MessageBox& box) {
  static const std::array<std::string, 5> kIcons{"no icon", "critical icon", "question icon",
                                                 "exclamation icon", "information icon"};
  static const std::array<std::string, 3> kButtons{"OK", "OK Cancel", "Yes No"};
  return (box.title.empty() ? "without title" : Quoted(box.title)) + ", " +
         kIcons.at(static_cast<std::size_t>(box.icon)) + ", " +
         kButtons.at(static_cast<std::size_t>(box.buttons)) + KeysOf(box) + ": " + Quoted(box.text);
}

std::string InWords(BoxAnswer answer) {
  static const std::array<std::string, 4> kAnswers{"OK", "Cancel", "Yes", "No"};
  return kAnswers.at(static_cast<std::size_t>(answer));
}

}  // namespace kavr6
