#include "platform/row_filter.h"

#include <cctype>
#include <sstream>

namespace kavr6 {
namespace {

bool EndsInDigit(const std::string& word) {
  return std::isdigit(static_cast<unsigned char>(word.back())) != 0;
}

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  std::istringstream in{std::string(text)};
  for (std::string word; in >> word;) {
    while (word.ends_with(',')) word.pop_back();
    if (!word.empty()) words.push_back(word);
  }
  return words;
}

/// Whether words of the note begin with `part`; with `whole`, whether they are just that.
bool HasWords(std::string_view note, const std::string& part, bool whole) {
  const auto ends = [note](std::size_t at) {
    return at == note.size() || note[at] == ' ' || note[at] == ',';
  };
  for (std::size_t at = note.find(part); at != std::string_view::npos; at = note.find(part, at + 1))
    if ((at == 0 || note[at - 1] == ' ') && (!whole || ends(at + part.size()))) return true;
  return false;
}

}  // namespace

RowFilter::RowFilter(std::string_view search, const std::set<std::string>& units) {
  const std::vector<std::string> words = WordsOf(search);
  for (std::size_t i = 0; i < words.size(); ++i) {
    const bool figure = EndsInDigit(words[i]) && i + 1 < words.size() && units.contains(words[i + 1]);
    sought_.push_back({figure ? words[i] + " " + words[i + 1] : words[i], figure});
    if (figure) ++i;
  }
}

bool RowFilter::Fits(std::string_view text, std::string_view note) const {
  for (const Sought& sought : sought_)
    if (text.find(sought.words) == std::string_view::npos && !HasWords(note, sought.words, sought.figure))
      return false;
  return true;
}

void RowFilter::CollectUnits(std::string_view note, std::set<std::string>& units) {
  const std::vector<std::string> words = WordsOf(note);
  for (std::size_t i = 1; i < words.size(); ++i)
    if (EndsInDigit(words[i - 1])) units.insert(words[i]);
}

}  // namespace kavr6
