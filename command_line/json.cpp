#include "command_line/json.h"

#include <cstdio>

namespace kavr6 {

std::string JsonText(std::string_view text) {
  std::string json = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      json += {'\\', c};
    } else if (static_cast<unsigned char>(c) < ' ') {
      char escape[7];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
      json += escape;
    } else {
      json += c;
    }
  }
  return json + "\"";
}

std::string JsonList(const std::vector<std::string>& elements) {
  std::string json;
  for (const std::string& element : elements) json += (json.empty() ? "" : ", ") + element;
  return "[" + json + "]";
}

std::string JsonObject(const std::vector<std::pair<std::string_view, std::string>>& members) {
  std::string json;
  for (const auto& [name, value] : members)
    json += (json.empty() ? "" : ", ") + JsonText(name) + ": " + value;
  return "{" + json + "}";
}

}  // namespace kavr6
