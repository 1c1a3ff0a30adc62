// Texts as the pages of the help need them.
#pragma once

#include <string>
#include <string_view>

namespace kavr6 {

std::string Replaced(std::string text, std::string_view what, std::string_view by);
/// A caption as the screen shows it: a doubled ampersand stands for one.
std::string Shown(std::string_view caption);
/// Text as it has to stand in a page.
std::string Markup(const std::string& text);
/// `markup` in an element of this name, `attribute` as it stands.
std::string Element(const std::string& name, const std::string& markup, const std::string& attribute = {});

}  // namespace kavr6
