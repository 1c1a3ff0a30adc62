// Results as JSON.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kavr6 {

/// A text in quotes. `text` is UTF-8; control characters are escaped.
std::string JsonText(std::string_view text);
/// Elements that are JSON already.
std::string JsonList(const std::vector<std::string>& elements);
/// Members whose values are JSON already.
std::string JsonObject(const std::vector<std::pair<std::string_view, std::string>>& members);

}  // namespace kavr6
