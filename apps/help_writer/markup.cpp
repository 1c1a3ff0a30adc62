#include "apps/help_writer/markup.h"

namespace kavr6 {

std::string Replaced(std::string text, std::string_view what, std::string_view by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
    text.replace(at, what.size(), by);
  return text;
}

std::string Shown(std::string_view caption) { return Replaced(std::string(caption), "&&", "&"); }

std::string Markup(const std::string& text) {
  return Replaced(Replaced(Replaced(text, "&", "&amp;"), "<", "&lt;"), ">", "&gt;");
}

std::string Element(const std::string& name, const std::string& markup, const std::string& attribute) {
  return "<" + name + (attribute.empty() ? "" : " " + attribute) + ">" + markup + "</" + name + ">";
}

}  // namespace kavr6
