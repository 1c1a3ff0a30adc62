#include "tests/support/recorder.h"

#include <set>
#include <vector>

#include "core/settings_fields.h"

namespace kavr6 {
namespace {

std::string ValueOf(const Settings& settings, const SettingsField& field) {
  struct Writer {
    std::string operator()(double value) const { return NumberOf(value); }
    std::string operator()(float value) const { return NumberOf(value); }
    std::string operator()(Long value) const { return std::to_string(value); }
    std::string operator()(Integer value) const { return std::to_string(value); }
    std::string operator()(bool value) const { return YesNo(value); }
    std::string operator()(const std::string& value) const { return Quoted(value); }
  };
  return std::visit([&](auto member) { return Writer()(settings.*member); }, field);
}

/// What a table of its own tells of.
const std::set<std::string> kStrip{"LineIcon",    "StatusLine",    "DriveIcon",  "StatusDrive",
                                   "InDriveIcon", "StatusInDrive", "InFileIcon", "StatusInFile",
                                   "StatusLamp",  "PortPlug",      "CommLine",   "LastEvent"};

}  // namespace

Recorder::Recorder(Scene& scene, Part part)
    : part_(part), scene_(scene), transcript_(scene.desktop), settings_(scene.settings) {
  if (part_ == Part::AllButStrip) WatchScene();
}

void Recorder::WatchScene() {
  for (Form* form : scene_.Forms()) Watch(*form);
  shared_ = SharedValues();
  rest_ = RestValues();
  front_ = scene_.desktop.ActiveFormName();
  scene_.desktop.watcher = scene_.comm.watcher = this;
  scene_.print.Told = [this](const std::string& what) { Note(what); };
  scene_.files.Replaced = [this](const std::string& name, std::string_view text) {
    std::string lines = "file \"" + name + "\" now holds:\n| ";
    for (const char c : text) lines += c == '\n' ? "\n| " : std::string(c == '\r' ? 0U : 1U, c);
    Note(lines);
  };
  scene_.table.Added = [this](const MemoryTable::Row& row) {
    std::string line = "motor table, new row:";
    for (const Variant& value : row) {
      if (const auto* text = std::get_if<std::string>(&value)) line += " " + Quoted(*text);
      if (const auto* number = std::get_if<double>(&value)) line += " " + NumberOf(*number);
      if (const auto* whole = std::get_if<std::int64_t>(&value)) line += " " + std::to_string(*whole);
      if (std::holds_alternative<std::monostate>(value)) line += " -";
    }
    Note(line);
  };
}

Recorder::~Recorder() {
  for (Form* form : scene_.Forms()) {
    form->SetView({});
    for (Control* control : form->Controls()) control->SetView({});
  }
  scene_.desktop.watcher = scene_.comm.watcher = nullptr;
  scene_.files.Replaced = {};
  scene_.print.Told = {};
  scene_.table.Added = {};
}

// The one place that knows where the shared values are.
Properties Recorder::SharedValues() const {
  const DriveState& state = scene_.state;
  const FileDialogState& files = scene_.program.Files.SaveFile;
  return {{"AppVersion", Quoted(state.AppVersion)},
          {"HelpDir", Quoted(state.HelpDir)},
          {"FileName", Quoted(state.FileName)},
          {"Modified", YesNo(state.Modified)},
          {"InertiaSet", YesNo(state.InertiaSet)},
          {"MotorTouched", YesNo(state.MotorTouched)},
          {"CommNumber", std::to_string(state.CommNumber)},
          {"StartPort", std::to_string(state.StartPort)},
          {"DspRev", NumberOf(state.DspRev)},
          {"MinorRev", Quoted(state.MinorRev)},
          {"DriveModelCode", std::to_string(state.DriveModelCode)},
          {"LiveToolActive", YesNo(state.LiveToolActive)},
          {"AlarmPopupOff", YesNo(state.AlarmPopupOff)},
          {"DriveHasFault", YesNo(state.DriveHasFault)},
          {"CommandActive", YesNo(state.CommandActive)},
          {"SaveFile", Quoted(files.Filter) + " ." + files.DefaultExt + " in " + Quoted(files.InitDir)},
          {"SaveFile CancelError", YesNo(files.CancelError)},
          {"RThreshold", std::to_string(scene_.comm.RThreshold())}};
}

Properties Recorder::RestValues() const {
  const TextArea& typed = scene_.program.Terminal.CommandText;
  return {{"caret of CommandText", typed.SelStart() == typed.Text().size() ? "at the end" : "before the end"},
          {"GlobalBuffer", Quoted(scene_.state.GlobalBuffer)},
          {"RingCount", std::to_string(scene_.program.receive.Ring().RingCount())},
          {"InBufferCount", std::to_string(scene_.comm.InBufferCount())}};
}

void Recorder::Watch(Form& form) {
  known_[&form] = PropertiesOf(form);
  form.SetView([this, &form] {
    Look();
    Follow(form.Name() + " ", known_[&form], PropertiesOf(form));
  });
  for (Control* control : form.Controls()) {
    if (kStrip.contains(control->Name())) continue;
    known_[control] = PropertiesOf(*control);
    control->SetView([this, &form, control] {
      const auto* const panel = dynamic_cast<const PercentPanel*>(control);
      if (panel != nullptr && transcript_.Progress(panel->FloodPercent())) {
        known_[control] = PropertiesOf(*control);
        return;
      }
      const std::string name = form.Name() + "." + control->Name();
      Look();
      const auto* const area = dynamic_cast<const TextArea*>(control);
      if (area != nullptr && area->ReadOnly()) return FollowRecord(name, *area);
      Follow(name, known_[control], PropertiesOf(*control));
    });
  }
}

// A long text is told by what comes to it and goes from it.
void Recorder::FollowRecord(const std::string& name, const TextArea& area) {
  const std::string before = std::exchange(records_[&area], area.Text());
  const std::string& text = area.Text();
  if (text == before) return;
  const bool own = !area.StandingOut().empty() && area.StandingOut().back().end == text.size();
  if (text.starts_with(before)) {
    if (area.SelStart() != before.size()) transcript_.Note(name + " had its caret elsewhere");
    transcript_.Growth(name + (own ? ", own" : ""), text.substr(before.size()));
  } else if (before.ends_with(text)) {
    transcript_.Note(name + " loses its first " + std::to_string(before.size() - text.size()) +
                     " bytes and keeps " + std::to_string(text.size()));
  } else {
    transcript_.Change(name, Quoted(before), Quoted(text));
  }
}

void Recorder::Follow(const std::string& name, Properties& known, const Properties& found) {
  const auto change = [&](const std::string& property, const std::string& before, const std::string& after) {
    const bool gap = !property.empty() && !name.empty() && !name.ends_with(' ');
    if (before != after) transcript_.Change(name + (gap ? " " : "") + property, before, after);
  };
  for (const auto& [property, value] : known)
    if (!found.contains(property)) change(property, value, "gone");
  for (const auto& [property, value] : found)
    change(property, known.contains(property) ? known.at(property) : "new", value);
  known = found;
}

void Recorder::LookAtSettings() {
  if (scene_.settings == settings_) return;
  for (const NamedField& field : SettingsFields()) {
    const std::string before = ValueOf(settings_, field.member);
    const std::string after = ValueOf(scene_.settings, field.member);
    if (before != after) transcript_.Change("settings." + std::string(field.name), before, after);
  }
  settings_ = scene_.settings;
}

void Recorder::TellStrip() {
  const MainForm& main = scene_.main;
  const auto cell = [](const Picture& icon, const Label& words) {
    return "[" + icon.Image() + "] " + words.Caption();
  };
  const std::vector<std::string> strip{
      cell(main.LineIcon, main.StatusLine), cell(main.DriveIcon, main.StatusDrive),
      cell(main.InDriveIcon, main.StatusInDrive) + "  " + cell(main.InFileIcon, main.StatusInFile),
      "lamp " + main.StatusLamp.Image() + ", " + main.PortPlug.Image() +
          (main.CommLine.Plugged() ? ", cable whole" : ", cable loose"),
      "last: " + main.LastEvent.Caption()};
  if (strip == strip_) return transcript_.Note("as before");
  strip_ = strip;
  for (const std::string& line : strip_) transcript_.Note(line);
}

void Recorder::Look() {
  if (part_ == Part::Strip) return;
  if (const std::string front = scene_.desktop.ActiveFormName(); front != front_) {
    front_ = front;
    transcript_.Note("in front: " + (front.empty() ? "no window" : front));
  }
  LookAtSettings();
  Follow("", shared_, SharedValues());
}

void Recorder::Step(const std::string& what) {
  Look();
  transcript_.Step(what);
}

void Recorder::Rest() {
  if (part_ == Part::Strip) return TellStrip();
  Look();
  Follow("", rest_, RestValues());
}

void Recorder::Note(const std::string& what) {
  Look();
  transcript_.Note(what);
}

void Recorder::Wire(bool toDrive, std::span<const std::uint8_t> bytes) {
  Look();
  transcript_.Wire(toDrive, bytes);
}

void Recorder::Asked(const MessageBox& box) { Note("box " + InWords(box)); }

void Recorder::Answered(const MessageBox& box, BoxAnswer answer) {
  Look();
  const std::string end = " -> " + InWords(answer);
  if (transcript_.Continue("box " + InWords(box), end)) return;
  transcript_.Note("box " + (box.title.empty() ? "without title" : Quoted(box.title)) + end);
}

void Recorder::Opened(const Form& form, bool modal) {
  front_ = form.Name();
  Note(front_ + (modal ? " shown, modal" : " shown"));
}

}  // namespace kavr6
