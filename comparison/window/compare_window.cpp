#include "comparison/window/compare_window.h"

#include "core/drive_models.h"
#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

/// Sign and word both tell how a setting compares.
std::string SignOf(Likeness likeness) {
  switch (likeness) {
    case Likeness::Differs:
      return "FactNo";
    case Likeness::NotStored:
      return "FactNone";
    default:
      return "FactYes";
  }
}

}  // namespace

CompareWindow::CompareWindow(const CompareParts& parts)
    : Form(parts.over.Desk(), "CompareWindow"), p_(parts) {
  SetCaption("Compare Settings");
  Table.SetTitle(0, "Section");
  Table.SetTitle(1, "Setting");
  Table.SetTitle(2, "On screen");
  Table.SetTitle(4, "Comparison");
  chkShowEqual.Clicked.Set([this] { FillTable(); });
  Copy.Clicked.Set([this] { Desk().CopyText(Text()); });
  TakeFromDrive.Clicked.Set([this] { Transfer([this] { p_.transfers.UploadClick(); }); });
  TakeFromFile.Clicked.Set([this] { OpenTheFile(); });
  Download.Clicked.Set([this] { Transfer([this] { p_.transfers.DownloadClick(); }); });
  OK.Clicked.Set([this] { Hide(); });
}

void CompareWindow::Once(const std::function<void()>& work) {
  if (busy_) return;
  struct Busy {
    bool& flag;
    ~Busy() { flag = false; }
  } const busy{busy_ = true};
  work();
}

void CompareWindow::CompareWithDrive() {
  bool read = false;
  Once([&] { read = ReadDrive(); });
  if (read) OpenWith(true);
}

void CompareWindow::CompareWithFile() {
  bool read = false;
  Once([&] {
    const std::string name = p_.files.ChooseToRead();
    read = !name.empty() && ReadFile(name);
  });
  if (read) OpenWith(false);
}

bool CompareWindow::ReadDrive() {
  Boxes& boxes = p_.line.boxes;
  const DriveState& state = p_.line.state;
  if (NoCommPort(p_.line.comm)) {
    boxes.Ask(
        {.text = "Cannot compare with drive: there is no comm port open.", .icon = BoxIcon::Information});
    return false;
  }
  if (p_.identity.SilentCheckDrive().empty()) {
    // Silence has been told.
    const bool answers = state.Drive.State() == DriveRecord::Presence::Answers;
    if (answers && ModelIndex(state.DriveModelCode) < 0)
      boxes.Ask({.text = "Cannot compare with drive: what answers is no drive of this family.",
                 .icon = BoxIcon::Information});
    return false;
  }
  Bytes image;
  return p_.transfers.ReadImage(image) == TransferEnd::Done && TakeImage(image);
}

bool CompareWindow::TakeImage(std::span<const Byte> image) {
  try {
    other_ = SideOfDrive(image);
    file_.clear();
    return true;
  } catch (const RuntimeError& error) {
    p_.line.boxes.Ask({.text = std::string("Cannot compare with drive: its settings cannot be read.  ") +
                               error.what() + "."});
    return false;
  }
}

bool CompareWindow::ReadFile(const std::string& name) {
  const std::optional<std::string> content = p_.files.ContentOf(name);
  if (!content) p_.files.TellNotOpened();
  try {
    if (content) TakeFile(name, *content);
    return content.has_value();
  } catch (const RuntimeError& error) {
    p_.files.TellUnread(error);
    return false;
  }
}

void CompareWindow::TakeFile(const std::string& name, const std::string& content) {
  file_ = name;
  other_.reset();
  other_ = SideOfFile(content, p_.settings);
}

void CompareWindow::OpenWith(bool drive) {
  Table.SetTitle(3, drive ? "In the drive" : "In the file");
  for (Button* button : {&TakeFromDrive, &Download}) button->SetVisible(drive);
  TakeFromFile.SetVisible(!drive);
  chkShowEqual.SetValue(false);
  ShowComparison();
  Table.Focus();  // a key that comes too early must not take anything over
  ShowModal();
}

void CompareWindow::Transfer(const std::function<void()>& road) {
  Once([&] {
    road();
    if (!Visible()) return;
    const auto held = p_.line.state.Drive.Held();
    other_.reset();
    if (held) TakeImage(*held);
    ShowComparison();
  });
}

void CompareWindow::OpenTheFile() {
  Once([&] {
    const int before = p_.files.FileRevision();
    const std::string name = file_;
    p_.files.OpenChosen(name);
    if (!Visible()) return;
    // What is wrong with it has been told when it was opened.
    const auto content = p_.files.FileRevision() == before ? std::nullopt : p_.files.ContentOf(name);
    try {
      if (content) TakeFile(name, *content);
    } catch (const RuntimeError&) {
      other_.reset();
    }
    ShowComparison();
  });
}

ComparedSide CompareWindow::Screen() const {
  const DriveState& state = p_.line.state;
  return SideOfScreen(p_.settings, p_.motorTable.RowIfAny(), state.ModelIndex, state.CommIndex);
}

std::string CompareWindow::OtherName() const {
  if (!file_.empty()) return "the file " + FileNameOf(file_);
  const DriveState& state = p_.line.state;
  return "the drive " + state.Drive.Model() + " on COM" + std::to_string(state.CommNumber.Get());
}

void CompareWindow::ShowComparison() {
  comparison_ = other_ ? Compare(Screen(), *other_) : Comparison();
  const int count = comparison_.differing;
  const std::string found = count == 0   ? "No difference"
                            : count == 1 ? "1 setting differs"
                                         : std::to_string(count) + " settings differ";
  Result.SetCaption(other_ ? found + " between the screen and " + OtherName() + "."
                           : "It is no longer known what " + OtherName() + " holds.");
  Unsendable.SetVisible(comparison_.unsendable);
  FillTable();
}

void CompareWindow::FillTable() {
  std::vector<std::vector<Grid::Cell>> rows;
  for (const ComparedSetting& setting : comparison_.settings) {
    if (setting.likeness != Likeness::Differs && !chkShowEqual.Value()) continue;
    rows.push_back({{.text = setting.section, .picture = SignOf(setting.likeness)},
                    {.text = setting.name},
                    {.text = setting.left},
                    {.text = setting.right},
                    {.text = LikenessWords(setting, comparison_.store)}});
  }
  Table.SetRows(std::move(rows));
}

std::string CompareWindow::Text() const {
  std::string text;
  const auto cell = [&](std::string words, int column) {
    for (char& c : words)
      if (c == '\t' || c == '\r' || c == '\n') c = ' ';
    text += words + (column + 1 < Table.Columns() ? "\t" : "\r\n");
  };
  for (int column = 0; column < Table.Columns(); ++column) cell(Table.Title(column), column);
  for (int row = 0; row < Table.Rows(); ++row)
    for (int column = 0; column < Table.Columns(); ++column) cell(Table.Text(row, column), column);
  return text;
}

}  // namespace kavr6
