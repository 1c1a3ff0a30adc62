#include "tools/vtl_term.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "link/wire.h"
#include "platform/path_text.h"

namespace kavr6 {
namespace {

constexpr std::size_t kMostCharacters = 4000;
constexpr std::size_t kFirstKept = 2000;  // counted from 1
constexpr std::size_t kLineEnd = 2;       // CR LF
constexpr int kFirstModelRow = 0;

/// Model bytes of earlier families. Whichever of them it is, the list of models goes to its first row.
constexpr std::array<std::uint8_t, 11> kFirstRowModels{9, 109, 31, 39, 32, 34, 40, 35, 36, 38, 37};

bool BeginsCharacter(char unit) { return (static_cast<unsigned char>(unit) & 0xC0U) != 0x80U; }

std::size_t CharacterCount(const std::string& utf8) {
  return static_cast<std::size_t>(std::ranges::count_if(utf8, BeginsCharacter));
}

/// Code units of the first so many characters.
std::size_t UnitsOf(const std::string& utf8, std::size_t characters) {
  std::size_t at = 0;
  for (; at < utf8.size(); ++at)
    if (BeginsCharacter(utf8[at]) && characters-- == 0) break;
  return at;
}

std::string ThreeDigits(std::uint8_t byte) { return FormatNumber(static_cast<double>(byte), "000"); }

std::string Shown(std::uint8_t byte) {
  const char character = static_cast<char>(byte);
  if (character == '\r') return "\r\n";
  const bool plain = (byte >= ' ' && byte <= '~') || character == '\n';
  return plain ? std::string(1, character) : "[" + ThreeDigits(byte) + "]";
}

}  // namespace

VTLterm::VTLterm(const DriveLine& line, Desktop& desktop, FileStore& files)
    : LiveTool(line, desktop, "VTLterm"), files_(files) {
  SetCaption("Host Terminal");
  FrameHistory.Hold({&History});
  FrameCommands.Hold({&CommandText, &Earlier});
  WireSession();
  announcement_.DoPowerUp = [this](const std::string& text) { DoPowerUp(text); };
  History.Change.Set([this] { LimitHistory(); });
  CommandText.KeyUp.Set([this](int code) {
    if (code == kEnterKey) SendLine();
  });
  CommandText.CtrlArrow.Set([this](int direction) {
    if (const auto text = memory_.Step(direction, CommandText.Text())) Recall(*text);
  });
  Earlier.Clicked.Set([this] {
    Recall(Earlier.Text());
    Earlier.SetListIndex(-1);  // so that the same line can be picked again
    CommandText.Focus();
  });
  Help.Clicked.Set([this] {
    if (ShowCommandList) ShowCommandList();
  });
  Save.Clicked.Set([this] { SaveRecord(); });
}

void VTLterm::WireSession() {
  Activate.Set([this] { BeginSession(); });
  // Also the end of a window that has been hidden; by then its session has ended.
  Deactivate.Set([this] {
    if (line_.state.LiveToolActive) GiveBack();
  });
  Quit.Clicked.Set([this] {
    GiveBack();
    Hide();
  });
}

void VTLterm::BeginSession() {
  line_.comm.Output("HR");  // without the carriage return that ends a command
  TakeLine();
  CommandText.Focus();
}

void VTLterm::EndSession(std::string_view command) {
  Send(command);
  LetGo();
}

void VTLterm::GiveBack() { EndSession(kQuitText); }

bool VTLterm::MayClose() {
  EndSession("HM");  // not what the button says
  return true;
}

void VTLterm::SendLine() {
  const std::string text = CommandText.Text();
  PendingCommand += text;
  line_.comm.Output(CharacterCodes(text));  // the line's end is part of the text
  line_.state.Drive.ForgetImage();
  AnswerDue();
  CheckIdle();
  memory_.Remember(text);
  Earlier.SetItems(memory_.Lines());
  CommandText.SetText("");
}

void VTLterm::CheckIdle() {
  const std::size_t count = CharacterCount(PendingCommand);
  const std::size_t shown = UnitsOf(PendingCommand, count - std::min(count, kLineEnd));
  Record("$" + PendingCommand.substr(0, shown) + "$\r\n", true);
  PendingCommand.clear();
}

void VTLterm::ProcessChar(std::uint8_t byte) {
  if (!announcement_.Take(byte)) Record(Shown(byte));
}

void VTLterm::DoPowerUp(const std::string& text) {
  const auto byte = [&text](std::size_t place) { return static_cast<std::uint8_t>(text.at(place)); };
  Record("{" + ThreeDigits(byte(0)) + "-" + ThreeDigits(byte(1)) + "-" + ThreeDigits(byte(2)) + "}\r\n");
  AnswerPowerUp(line_, byte(1), byte(2));
  if (std::ranges::count(kFirstRowModels, byte(2)) > 0) line_.state.SelectModelOfDrive(kFirstModelRow);
}

void VTLterm::Record(const std::string& text, bool own) {
  History.Append(text, own);
  History.CaretToEnd();
}

void VTLterm::LimitHistory() {
  const std::string& text = History.Text();
  if (text.size() <= kMostCharacters || CharacterCount(text) <= kMostCharacters) return;
  History.DropFront(UnitsOf(text, kFirstKept - 1));
}

void VTLterm::Recall(const std::string& line) {
  CommandText.SetText(line);
  CommandText.CaretToEnd();
}

void VTLterm::SaveRecord() {
  const std::string name = Desk().ChooseFile({.purpose = FileDialog::Purpose::Save,
                                              .filter = "Text Files|*.txt",
                                              .defaultExtension = "txt",
                                              .folder = folder_});
  if (name.empty()) return;
  folder_ = FolderOf(name);
  try {
    files_.Replace(name, History.Text());
  } catch (const RuntimeError& error) {
    Desk().Ask({.text = std::string("Error saving file: ") + error.what()});
  }
}

}  // namespace kavr6
