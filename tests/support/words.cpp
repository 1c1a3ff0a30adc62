#include "tests/support/words.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "core/numbers.h"

namespace kavr6 {
namespace {

template <class Number, class... Base>
Number Read(const std::string& word, Base... base) {
  Number number{};
  const char* const end = word.data() + word.size();
  std::from_chars_result read{};
  if constexpr (std::is_same_v<Number, double>)
    read = RealFromChars(word.data(), end, number);
  else
    read = std::from_chars(word.data(), end, number, base...);
  if (read.ec != std::errc() || read.ptr != end) throw std::runtime_error("not a number: " + word);
  return number;
}

}  // namespace

Words::Words(std::string text) : text_(std::move(text)) { SkipBlanks(); }

void Words::SkipBlanks() { text_.erase(0, std::min(text_.find_first_not_of(' '), text_.size())); }

std::size_t Words::EndOfQuotes() const {
  const std::size_t end = text_.find('"', 1);
  if (end == std::string::npos) throw std::runtime_error("quotes without an end: " + text_);
  return end;
}

std::string Words::Next() {
  if (text_.empty()) throw std::runtime_error("a word is missing");
  std::string word;
  if (text_.front() != '"') {
    word = text_.substr(0, text_.find(' '));
    text_.erase(0, word.size());
  } else {
    const std::size_t end = EndOfQuotes();
    for (std::size_t i = 1; i < end; ++i) {
      const bool code = text_.compare(i, 2, "\\x") == 0 && i + 3 < end;
      word += code ? static_cast<char>(Read<int>(text_.substr(i + 2, 2), 16)) : text_[i];
      if (code) i += 3;
    }
    text_.erase(0, end + 1);
  }
  SkipBlanks();
  return word;
}

bool Words::Take(const std::string& word) {
  Words ahead = *this;
  if (!ahead.More() || ahead.Next() != word) return false;
  *this = ahead;
  return true;
}

double Words::Number() { return Read<double>(Next()); }

int Words::Whole() { return Read<int>(Next()); }

bool Words::YesNo() {
  if (Take("yes")) return true;
  if (Take("no")) return false;
  throw std::runtime_error("neither yes nor no: " + text_);
}

int Words::Byte() { return Read<int>(Next(), 16); }

std::string Words::Rest() { return std::exchange(text_, {}); }

Words Words::Step() {
  bool quoted = false;
  std::size_t end = 0;
  for (; end < text_.size() && (quoted || text_.compare(end, 2, "; ") != 0); ++end)
    if (text_[end] == '"') quoted = !quoted;
  Words step(text_.substr(0, end));
  text_.erase(0, end + 1);
  SkipBlanks();
  return step;
}

}  // namespace kavr6
