// The whole program with its setup dialogs, on a scene.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "tests/support/scene.h"

namespace kavr6 {

struct SetupDialogs : SceneTest {
  PulseDirDialog& pulse = program.PulseDirSetup;
  VelocityDialog& velocity = program.VelocitySetup;
  AdvancedSettings& advanced = program.AdvancedSetup;
  VTLdialog& vtl = program.VTLSetup;
  IOdialog& io = program.IOSetup;
  EncoderDialog& encoder = program.EncoderSetup;
  RegenDialog& regen = program.RegenSetup;
  MotionMenu& menu = program.ModeMenu;

  /// What the user does in a window: "Name" is a click, "Name=text" is typed, "Name=2" picks a row of a list.
  static void Do(const Form& form, const std::string& script) {
    std::istringstream words(script);
    for (std::string word; words >> word;) {
      const std::size_t at = word.find('=');
      Control& control = *form.Find(word.substr(0, at));
      const std::string text = at == std::string::npos ? "" : word.substr(at + 1);
      if (auto* const box = dynamic_cast<TextBox*>(&control)) box->Type(text);
      if (auto* const list = dynamic_cast<ListBox*>(&control)) list->Select(std::stoi(text));
      if (auto* const button = dynamic_cast<ClickableControl*>(&control)) button->Click();
    }
  }
  /// Those of the named controls that are `state`, which is Control::Visible or Control::Enabled.
  static std::string Which(const Form& form, const std::string& names, bool (Control::*state)() const) {
    std::string found;
    std::istringstream words(names);
    for (std::string name; words >> name;)
      if ((form.Find(name)->*state)()) found += name + " ";
    return found;
  }
  /// The row of the named list, or the place of the one button among the named that is on; "-" for none.
  static std::string Picked(const Form& form, const std::string& names) {
    std::istringstream words(names);
    int place = 0;
    for (std::string name; words >> name; ++place) {
      const Control* const control = form.Find(name);
      if (const auto* const list = dynamic_cast<const ListBox*>(control))
        return std::to_string(list->ListIndex());
      const auto* const option = dynamic_cast<const OptionButton*>(control);
      if (option != nullptr ? option->Value() : dynamic_cast<const CheckBox&>(*control).Value())
        return std::to_string(place);
    }
    return "-";
  }
  /// The windows beside the main screen.
  std::string Shown() const {
    std::string names;
    for (const Form* form : scene.desktop.ShownForms())
      if (form != &main) names += form->Name() + " ";
    return names;
  }
};

}  // namespace kavr6
