#include "platform/row_filter.h"

#include <cctype>
#include <sstream>

namespace kavr6 {
namespace {

bool IsDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }
bool EndsWord(std::string_view note, std::size_t at) {
  return at == note.size() || note[at] == ' ' || note[at] == ',';
}

/// Whether a word of the note begins with `part`, or is just that.
bool HasWord(std::string_view note, const std::string& part, bool whole = false) {
  for (std::size_t at = note.find(part); at != std::string_view::npos; at = note.find(part, at + 1))
    if ((at == 0 || note[at - 1] == ' ') && (!whole || EndsWord(note, at + part.size()))) return true;
  return false;
}

/// Whether the word stands behind a number of the note.
bool IsUnit(std::string_view note, const std::string& word) {
  const std::string behind = " " + word;
  for (std::size_t at = note.find(behind); at != std::string_view::npos; at = note.find(behind, at + 1))
    if (at > 0 && IsDigit(note[at - 1]) && EndsWord(note, at + behind.size())) return true;
  return false;
}

}  // namespace

RowFilter::RowFilter(std::string_view search) {
  std::istringstream in{std::string(search)};
  for (std::string word; in >> word;) {
    while (word.ends_with(',')) word.pop_back();
    if (!word.empty()) words_.push_back(word);
  }
}

bool RowFilter::Fits(std::string_view text, std::string_view note) const {
  for (std::size_t i = 0; i < words_.size(); ++i) {
    const std::string& word = words_[i];
    if (text.find(word) != std::string_view::npos) continue;
    const bool figure = IsDigit(word.back()) && i + 1 < words_.size() && IsUnit(note, words_[i + 1]);
    if (!(figure ? HasWord(note, word + " " + words_[i + 1], true) : HasWord(note, word))) return false;
  }
  return true;
}

}  // namespace kavr6
