// The words of which scenarios are made.
#include <algorithm>
#include <array>
#include <map>
#include <utility>
#include <variant>

#include "core/settings_fields.h"
#include "help/field_help.h"
#include "platform/grid.h"
#include "platform/text_area.h"
#include "tests/support/scenario.h"

namespace kavr6 {
namespace {

using S = Scenario&;
using W = Words&;

// The program and its user.

void Click(S s, W w) {
  const std::string name = w.Next();
  Control& control = s.The<Control>(name);
  if (auto* const item = dynamic_cast<MenuItem*>(&control)) return item->Click();
  s.The<ClickableControl>(name).Click();
}

void Start(S s, W w) {
  if (w.Take("unseen")) {
    s.scene.program.Start();
    Delay(s.scene.desktop, 0.5);  // the names of the devices come a little later
    while (w.More()) Click(s, w);
    s.Record();
  } else if (w.Take("strip")) {  // what follows is what the status strip says
    s.Record("", Recorder::Part::Strip);
    s.scene.program.Start();
  } else {
    s.Record(w.Take("like") ? w.Next() : "");
    s.scene.program.Start();
  }
}

void Type(S s, W w) {
  const std::string name = w.Next();
  if (auto* const area = dynamic_cast<TextArea*>(&s.The<Control>(name))) return area->Type(w.Next());
  s.The<TextBox>(name).Type(w.Next());
}

/// Types a line, with its end, and lets Enter go.
void Line(S s, W w) {
  auto& area = s.The<TextArea>(w.Next());
  area.Type(w.Next() + "\r\n");
  area.ReleaseKey(kEnterKey);
}

/// Each number or text that follows is typed and left in turn.
void Enter(S s, W w) {
  auto& box = s.The<TextBox>(w.Next());
  while (w.More()) {
    const std::string typed = w.Next();
    box.Type(typed);
    box.Owner().Find("Cancel")->TabTo();
    s.recorder->Note(Quoted(typed) + " is left as " + Quoted(box.Text()));
  }
}

/// All that a window shows, or one control of it.
void Show(S s, W w) {
  const std::string name = w.Next();
  const auto show = [&](const Control& control) {
    std::string line = control.Owner().Name() + "." + control.Name() + ":";
    for (const auto& [property, value] : PropertiesOf(control)) {
      const bool usual =
          (property == "tip" && value == Quoted(FieldHelp(control))) ||
          (property == "enabled" && value == "yes") || (property == "visible" && value == "yes") ||
          (property == "mark" && value == Quoted("")) || (property == "faded" && value == "no");
      if (!usual) line += " " + property + (property.empty() ? "" : " ") + value + ",";
    }
    line.pop_back();
    s.recorder->Note(line);
  };
  if (name.find('.') != std::string::npos) return show(s.The<Control>(name));
  for (const auto& [property, value] : PropertiesOf(s.Window(name)))
    s.recorder->Note(name + " " + property + " " + value);
  for (const Control* control : s.Window(name).Controls()) show(*control);
}

/// What stands beside the fields of each window, empty where one tells nothing.
void TellFieldHelp(S s, W w) {
  constexpr std::array kFields{ControlKind::TextBox,      ControlKind::TextArea, ControlKind::CheckBox,
                               ControlKind::OptionButton, ControlKind::ListBox,  ControlKind::Slider};
  while (w.More()) {
    Form& form = s.Window(w.Next());
    for (const Control* control : form.Controls()) {
      if (control->Name().find('(') != std::string::npos && !control->Name().ends_with("(0)")) continue;
      if (!control->ToolTip().empty() || std::ranges::count(kFields, control->Kind()) > 0)
        s.recorder->Note(form.Name() + "." + control->Name() + ": " + control->ToolTip());
    }
  }
}

void Key(S s, W w) {
  Form& form = s.Window(w.Next());
  s.recorder->Note(form.PressKey(static_cast<char>(w.Whole())) ? "the window keeps it"
                                                               : "the control gets it");
}

/// Files are dragged onto a window and let fall where it takes them.
void Drop(S s, W w) {
  Form& form = s.Window(w.Next());
  std::vector<std::string> files;
  while (w.More()) files.push_back(w.Next());
  if (!form.WouldTake(files)) return s.recorder->Note("the window does not take this");
  form.DropFiles(files);
}

/// F1 in a window, or in what the desktop names in quotes.
void HelpKey(S s, W w) {
  const std::string where = w.Next();
  if (where.find(' ') != std::string::npos) return s.scene.desktop.WantHelp(where);
  s.Window(where).PressHelpKey();
}

void Answer(S s, W w) {
  static const std::string kLetters = "OCYN";  // in the order of BoxAnswer
  const std::string letters = w.Next();
  const double after = w.Take("after") ? w.Number() : 0.0;
  for (const char letter : letters)
    s.scene.desktop.Expect(ExpectedBox{.answer = static_cast<BoxAnswer>(kLetters.find(letter)),
                                       .after = after,
                                       .during = std::exchange(s.meanwhile, {})});
}

void File(S s, W w) {
  const auto purpose = w.Take("open") ? FileDialog::Purpose::Open : FileDialog::Purpose::Save;
  if (purpose == FileDialog::Purpose::Save && !w.Take("save")) throw std::runtime_error("open or save");
  s.scene.desktop.Expect({.purpose = purpose, .name = w.Next(), .during = std::exchange(s.meanwhile, {})});
}

/// "later line 0.1 unplug": also while the program is blocked.
void Later(S s, W w) {
  Scheduler& clock = w.Take("line") ? static_cast<Scheduler&>(s.scene.desktop.Line()) : s.scene.desktop;
  const double seconds = w.Number();
  clock.CallAfter(seconds, [&s, steps = w.Rest()] {
    s.recorder->Note("# " + steps);
    s.Do(Words(steps));
  });
}

/// The user logs off; "mute" where the system lets nothing be asked.
void Logoff(S s, W w) {
  const bool mute = w.Take("mute");
  const bool may = s.scene.desktop.MaySessionEnd([mute] { return !mute; });
  s.recorder->Note(may ? "the session ends" : "the session is kept");
}

/// What the user cannot do, and why.
void InVain(S s, W w) {
  try {
    s.Do(Words(w.Rest()));
  } catch (const HeadlessFault& fault) {
    return s.recorder->Note(fault.what());
  }
  throw std::runtime_error("the user can do this");
}

void TellOpeners(S s, W) {
  using O = MainFormOpeners;
  static const std::pair<std::function<void()> O::*, std::string> kOpeners[] = {
      {&O::Motion, "Motion"},     {&O::Motor, "Motor"},
      {&O::Encoder, "Encoder"},   {&O::IO, "IO"},
      {&O::Regen, "Regen"},       {&O::Open, "Open"},
      {&O::Save, "Save"},         {&O::SaveAs, "SaveAs"},
      {&O::Print, "Print"},       {&O::Preview, "Preview"},
      {&O::History, "History"},   {&O::ClearFault, "ClearFault"},
      {&O::IOStatus, "IOStatus"}, {&O::Restore, "Restore"},
      {&O::Terminal, "Terminal"}, {&O::SelfTest, "SelfTest"},
      {&O::Contents, "Contents"}, {&O::ContactUs, "ContactUs"},
      {&O::WebSite, "WebSite"}};
  for (const auto& [opener, name] : kOpeners)
    s.scene.main.Openers.*opener = [&s, what = name] { s.recorder->Note("opens " + what); };
  s.scene.main.Openers.HelpOn = [&s](const Control& spot) {
    s.recorder->Note("opens help on " + spot.Name());
  };
}

/// What the setup dialogs open outside of themselves; to be said before the start.
void TellPages(S s, W) {
  s.scene.program.CustomMotorSetup.OpenWizard = [&s] { s.recorder->Note("opens the wizard"); };
  s.scene.program.IOSetup.OpenHistory = [&s] { s.recorder->Note("opens the history"); };
}

// Settings and shared values.

/// Takes the next word as the kind of value that it is given.
struct Reader {
  Words& words;
  void operator()(double& value) const { value = words.Number(); }
  void operator()(float& value) const { value = static_cast<float>(words.Number()); }
  void operator()(Long& value) const { value = words.Whole(); }
  void operator()(Integer& value) const { value = static_cast<Integer>(words.Whole()); }
  void operator()(bool& value) const { value = words.YesNo(); }
  void operator()(Watched<int>& value) const { value = words.Whole(); }
  void operator()(std::string& value) const { value = words.Next(); }
};

void Set(S s, W w) {
  const std::string name = w.Next();
  for (const NamedField& field : SettingsFields())
    if (field.name == name)
      return std::visit([&](auto member) { Reader{w}(s.scene.settings.*member); }, field.member);
  throw std::runtime_error("no field " + name);
}

void State(S s, W w) {
  using D = DriveState;
  using Member = std::variant<bool D::*, std::string D::*, float D::*, Watched<int> D::*>;
  static const std::map<std::string, Member> kMembers{{"Modified", &D::Modified},
                                                      {"InertiaSet", &D::InertiaSet},
                                                      {"MotorTouched", &D::MotorTouched},
                                                      {"LiveToolActive", &D::LiveToolActive},
                                                      {"AlarmPopupOff", &D::AlarmPopupOff},
                                                      {"CommandActive", &D::CommandActive},
                                                      {"CommandPause", &D::CommandPause},
                                                      {"FileName", &D::FileName},
                                                      {"GlobalBuffer", &D::GlobalBuffer},
                                                      {"MinorRev", &D::MinorRev},
                                                      {"DspRev", &D::DspRev},
                                                      {"ModelIndex", &D::ModelIndex}};
  const auto found = kMembers.find(w.Next());
  if (found == kMembers.end()) throw std::runtime_error("no such shared value");
  std::visit([&](auto member) { Reader{w}(s.scene.state.*member); }, found->second);
}

// The drive, the line and the machine.

/// Bytes in hexadecimal, texts in quotes; at the end perhaps "times 200".
void DriveSends(S s, W w) {
  std::string bytes;
  while (w.More()) {
    if (w.Take("times")) {
      const std::string once = bytes;
      for (int more = w.Whole(); more > 1; --more) bytes += once;
      break;
    }
    const bool text = Words(w).Rest().starts_with('"');
    bytes += text ? w.Next() : std::string(1, static_cast<char>(w.Byte()));
  }
  s.scene.drive.SendRaw(bytes);
}

/// "input X3 low"
void Input(S s, W w) {
  const std::size_t input = DriveTerminals::InputOf(w.Next()).value();
  s.scene.drive.SetInput(input, w.Next() == "high");
}

/// The byte's place and what stands there, in turn; the sum fits again.
void Image(S s, W w) {
  SimulatedDrive::Image image = s.scene.drive.StoredImage();
  while (w.More()) {
    const auto place = static_cast<std::size_t>(w.Whole());
    image.at(place) = static_cast<std::uint8_t>(w.Byte());
  }
  image[159] = static_cast<std::uint8_t>(DriveImageSum(image) / 256);
  image[160] = static_cast<std::uint8_t>(DriveImageSum(image) % 256);
  s.scene.drive.StoreImage(image);
}

/// "fault late 6 seconds 0.9": the byte is counted from now on.
void Fault(S s, W w) {
  static const std::map<std::string, LineFault> kFaults{{"lost", LineFault::Lost},
                                                        {"doubled", LineFault::Doubled},
                                                        {"flipped", LineFault::Flipped},
                                                        {"inserted", LineFault::Inserted},
                                                        {"late", LineFault::Late}};
  s.scene.comm.ClearFault();
  if (w.Take("none")) return;
  FaultAt fault;
  if (w.Take("to-drive")) fault.direction = FaultAt::Direction::ToDrive;
  fault.fault = kFaults.at(w.Next());
  fault.byte = w.Whole();
  if (w.Take("value")) fault.value = static_cast<std::uint8_t>(w.Byte());
  if (w.Take("seconds")) fault.seconds = w.Number();
  s.scene.comm.Arm(fault);
}

void Port(S s, W w) {
  const int port = w.Whole();
  if (w.Take("drive")) return s.scene.comm.Connect(port, &s.scene.drive);
  if (w.Take("empty")) return s.scene.comm.Connect(port, nullptr);
  if (w.Take("refuse")) return s.scene.comm.Refuse(port, "Port in use");
  if (w.Take("forbid")) return s.scene.comm.Refuse(port, "No permission", MSComm::kNoPermission);
  throw std::runtime_error("neither drive nor empty nor refuse nor forbid");
}

void Identity(S s, W w) {
  const int revision = w.Whole();
  const int model = w.Whole();
  s.scene.drive.SetIdentity(revision, model, w.Next().at(0));
}

/// Replaces a part of a file by another.
void Edit(S s, W w) {
  std::string& text = s.scene.files.content.at(w.Next());
  const std::string part = w.Next();
  const std::size_t at = text.find(part);
  if (at == std::string::npos) throw std::runtime_error("not in the file: " + part);
  text.replace(at, part.size(), w.Next());
}

void Table(S s, W w) {
  const std::string state = w.Next();
  if (state == "empty") s.scene.table = MemoryTable();
  s.scene.table.FailOpen = state == "missing";
  s.scene.table.FailUpdate = state == "readonly";
  s.scene.table.Missing = state == "reduced" ? "The file \"own motors\" is not a database." : "";
  s.scene.table.TakenBy = state == "own" ? "own/kavr6 motors.mdb" : "";
}

/// A motor of the catalogue by the values of its columns; a whole number with a point is a double.
void Motor(S s, W w) {
  MemoryTable::Row row;
  while (w.More()) {
    const bool number = std::string("-0123456789").find(Words(w).Rest().front()) != std::string::npos;
    const std::string word = w.Next();
    if (!number) {
      row.emplace_back(word);
    } else if (word.find('.') == std::string::npos) {
      row.emplace_back(std::int64_t{Words(word).Whole()});
    } else {
      row.emplace_back(Words(word).Number());
    }
  }
  s.scene.table.Add(row);
}

void Printer(S s, W w) {
  CollectedPrint& print = s.scene.print;
  const std::string state = w.Next();
  print.Cancels = state == "cancelled";
  print.Fails = state == "broken";
  if (state == "open") print.During = std::exchange(s.meanwhile, {});
}

void Focus(S s, W) {
  const Control* const control = s.Window(s.scene.desktop.ActiveFormName()).FocusedControl();
  s.recorder->Note("focus: " + (control == nullptr ? "none" : control->Name()));
}

// clang-format off: one line for a word
const std::map<std::string, StepDone> kSteps{
    {"start", Start},  // "unseen", up to what is clicked then, or "like" another transcript
    {"click", Click},
    {"doubleclick", [](S s, W w) { s.The<Grid>(w.Next()).DoubleClick(w.Whole()); }},
    {"type", Type},
    {"enterkey", [](S s, W w) { s.The<TextArea>(w.Next()).ReleaseKey(kEnterKey); }},
    {"arrow", [](S s, W w) { s.The<TextArea>(w.Next()).PressCtrlArrow(w.Next() == "up" ? -1 : 1); }},
    {"line", Line},
    {"enter", Enter},
    {"select", [](S s, W w) { s.The<ListBox>(w.Next()).Select(w.Whole()); }},
    {"open", [](S s, W w) { s.The<ListBox>(w.Next()).Open(); }},
    {"closelist", [](S s, W w) { s.The<ListBox>(w.Next()).Close(); }},
    {"scroll", [](S s, W w) { s.The<Slider>(w.Next()).Scroll(w.Whole()); }},
    {"tab", [](S s, W w) { s.The<Control>(w.Next()).TabTo(); }},
    {"press", [](S s, W w) { s.The<ImageButton>(w.Next()).MouseDown(); }},
    {"release", [](S s, W w) { s.The<ImageButton>(w.Next()).MouseUp(); }},
    {"key", Key},
    {"drop", Drop},
    {"f1", HelpKey},
    {"close", [](S s, W w) { s.Window(w.Next()).RequestClose(); }},
    {"bring", [](S s, W w) { s.Window(w.Next()).Show(); }},  // without a user
    {"away", [](S s, W w) { s.Window(w.Next()).Hide(); }},
    {"small", [](S s, W w) { s.Window(w.Next()).Resize(100, 100); }},
    {"wait", [](S s, W w) { Delay(s.scene.desktop, w.Number()); }},
    {"later", Later},
    {"vain", InVain},
    {"meanwhile", [](S s, W w) { s.meanwhile = [&s, steps = w.Rest()] { s.Do(Words(steps)); }; }},
    {"answer", Answer},
    {"file", File},
    {"show", Show},
    {"focus", Focus},
    {"fields", TellFieldHelp},
    {"openers", TellOpeners},
    {"pages", TellPages},

    {"set", Set},
    {"state", State},
    {"afresh", [](S s, W) { InitVars(s.scene.settings); }},
    {"motor", [](S s, W w) { s.scene.program.MotorSetup.SetMotorList(w.Next()); }},
    {"row", [](S s, W w) { s.scene.program.motorTable.Seek(w.Next()); }},
    {"norow", [](S s, W) { s.scene.program.motorTable.Overview(); }},
    {"summarize", [](S s, W) { s.scene.program.summary.SummarizeAll(); }},
    {"status",
     [](S s, W) { s.recorder->Note("it is " + std::to_string(s.scene.program.identity.GetServoStatus())); }},
    {"box", [](S s, W w) { s.scene.desktop.Ask({.text = w.Next()}); }},

    {"port", Port},
    {"unplug", [](S s, W) { s.scene.comm.Unplug(); }},
    {"plug", [](S s, W) { s.scene.comm.Plug(); }},
    {"hangup", [](S s, W) { s.scene.comm.HangUp(); }},
    {"threshold", [](S s, W w) { s.scene.comm.SetRThreshold(w.Whole()); }},
    {"latency", [](S s, W w) { s.scene.comm.SetLatency(w.Number()); }},
    {"fault", Fault},
    {"identity", Identity},
    {"image", Image},
    {"sends", DriveSends},
    {"answers",  // a line of text, and all that comes back
     [](S s, W w) {
       const std::string line = w.Next() + '\r';
       s.scene.comm.Script(line, w.Next());
     }},
    {"restart", [](S s, W) { s.scene.drive.Restart(); }},
    {"refusing", [](S s, W w) { s.scene.drive.SetRefusing(w.YesNo()); }},
    {"comeback", [](S s, W) { s.scene.desktop.CameBack(); }},  // from another program
    {"copied", [](S s, W) { s.recorder->Note("copied: " + Quoted(s.scene.desktop.Copied())); }},
    {"silent", [](S s, W w) { s.scene.drive.SetSilent(w.YesNo()); }},
    {"alarm", [](S s, W w) { s.scene.drive.RaiseAlarm(w.Whole()); }},
    {"input", Input},
    {"volts", [](S s, W w) { s.scene.drive.SetVolts(w.Number()); }},
    {"encoder", [](S s, W w) { s.scene.drive.SetEncoder(w.Whole()); }},
    {"stall", [](S s, W w) { s.scene.drive.SetStalled(w.YesNo()); }},
    {"sticking", [](S s, W w) { s.scene.drive.SetAlarmSticking(w.YesNo()); }},
    {"logoff", Logoff},
    {"quit", [](S s, W) { s.scene.desktop.EndProgram(0); }},
    {"screen",
     [](S s, W w) {
       s.scene.desktop.SetScreen({w.Whole(), w.Whole()});
     }},
    {"version",
     [](S s, W w) {
       s.scene.desktop.SetVersion({w.Whole(), w.Whole(), w.Whole()});
     }},
    {"shift", [](S s, W w) { s.scene.desktop.SetShift(w.YesNo()); }},
    {"decimals", [](S s, W w) { s.scene.desktop.SetDecimalSign(w.Next()); }},
    {"edit", Edit},
    {"remove", [](S s, W w) { s.scene.files.content.erase(w.Next()); }},
    {"disk", [](S s, W w) { s.scene.files.FailReplace = w.Next() == "full"; }},
    {"readable", [](S s, W w) { s.scene.files.FailRead = !w.YesNo(); }},
    {"catalogue", Motor},
    {"printer", Printer},  // "ready", "cancelled", "broken" or, after meanwhile, "open"
    {"table", Table},
};
// clang-format on

}  // namespace

StepDone FindStep(const std::string& word) {
  const auto found = kSteps.find(word);
  return found == kSteps.end() ? nullptr : found->second;
}

}  // namespace kavr6
