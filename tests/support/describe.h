// What a person would note down of a control, a box or some bytes.
#pragma once

#include <map>
#include <span>
#include <string>

#include "core/settings_fields.h"
#include "platform/control.h"
#include "platform/message_box.h"

namespace kavr6 {

/// Values by their names, in a stable order.
using Properties = std::map<std::string, std::string>;

/// All that a control shows; its chief value has an empty name.
Properties PropertiesOf(const Control& control);
Properties PropertiesOf(const Form& form);
std::string ValueOf(const Settings& settings, const SettingsField& field);

std::string Quoted(const std::string& text);
std::string YesNo(bool value);
/// Up to 15 significant digits, 7 of a float.
std::string NumberOf(double value);
std::string NumberOf(float value);
/// In quotes when all of it can be printed, else in hexadecimal.
std::string BytesInWords(std::span<const std::uint8_t> bytes);
std::string Hex(std::span<const std::uint8_t> bytes);
/// Title, icon and buttons, then the text.
std::string InWords(const MessageBox& box);
std::string InWords(BoxAnswer answer);

}  // namespace kavr6
