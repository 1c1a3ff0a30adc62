// Controls, boxes and bytes in words: what a person would note down of them.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>

#include "platform/control.h"
#include "platform/message_box.h"

namespace kavr6 {

/// Values by their names, in a stable order.
using Properties = std::map<std::string, std::string>;

/// All that a control shows, of every kind; its chief value has an empty name, a list's rows are "row 00" and
/// so on.
Properties PropertiesOf(const Control& control);
/// Caption, place and size in twips.
Properties PropertiesOf(const Form& form);

/// In double quotes, characters below the blank as in \x0D; UTF-8 stays as it is.
std::string Quoted(const std::string& text);
/// "yes" or "no".
std::string YesNo(bool value);
/// Up to 15 significant digits, 7 of a float.
std::string NumberOf(double value);
std::string NumberOf(float value);
/// In quotes when all of it can be printed, or is lines with carriage returns and line feeds at their ends;
/// else in hexadecimal.
std::string BytesInWords(std::span<const std::uint8_t> bytes);
/// "0A FF": two digits a byte.
std::string Hex(std::span<const std::uint8_t> bytes);
/// Title, icon, buttons and what Enter and Esc answer, then the text.
std::string InWords(const MessageBox& box);
std::string InWords(BoxAnswer answer);

}  // namespace kavr6
