#include "config_file/cnf_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

#include "core/numbers.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr std::size_t kPrintZone = 14;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kTrue = "#TRUE#";
constexpr std::string_view kFalse = "#FALSE#";
constexpr int kTypeMismatch = 13;
constexpr int kOverflow = 6;
constexpr int kPastEnd = 62;

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kEndOfValue = " \t,";
constexpr std::string_view kLoneQuote = "\"\"\"";

std::string QuotedText(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += c;
    quoted += c == '\r' || c == '\n' ? ' ' : c;
  }
  return quoted + '"';
}

/// Place of the quote that closes the text which the line begins with: the first behind the opening one that
/// is not doubled.
std::size_t ClosingQuote(std::string_view line) {
  std::size_t at = line.find('"', 1);
  while (at != std::string_view::npos && line.substr(at + 1).starts_with('"')) at = line.find('"', at + 2);
  return at;
}

std::string WithQuotesSingle(std::string_view text) {
  std::string single;
  for (std::size_t at = 0; at < text.size(); ++at) {
    single += text[at];
    if (text[at] == '"') ++at;
  }
  return single;
}

bool EndsBefore(std::string_view rest) {
  return rest.empty() || kEndOfValue.find(rest[0]) != std::string_view::npos;
}

/// Length of the UTF-8 character that the text begins with, 0 when it is none.
std::size_t CharacterLength(std::string_view text) {
  struct Range {
    unsigned char firstLead, lastLead, firstNext, lastNext;
    std::size_t length;
  };
  // The second byte tells overlong forms, surrogates and what lies behind the last character.
  static constexpr std::array<Range, 8> kRanges{{{0xC2, 0xDF, 0x80, 0xBF, 2},
                                                 {0xE0, 0xE0, 0xA0, 0xBF, 3},
                                                 {0xE1, 0xEC, 0x80, 0xBF, 3},
                                                 {0xED, 0xED, 0x80, 0x9F, 3},
                                                 {0xEE, 0xEF, 0x80, 0xBF, 3},
                                                 {0xF0, 0xF0, 0x90, 0xBF, 4},
                                                 {0xF1, 0xF3, 0x80, 0xBF, 4},
                                                 {0xF4, 0xF4, 0x80, 0x8F, 4}}};
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  if (byte(0) < 0x80) return 1;
  for (const Range& r : kRanges) {
    if (byte(0) < r.firstLead || byte(0) > r.lastLead || text.size() < r.length) continue;
    const std::string_view tail = text.substr(2, r.length - 2);
    const bool fits = byte(1) >= r.firstNext && byte(1) <= r.lastNext &&
                      std::all_of(tail.begin(), tail.end(), IsContinuation);
    return fits ? r.length : 0;
  }
  return 0;
}

std::string AsUtf8(std::string_view text) {
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t length = CharacterLength(rest);
    if (length == 0) break;
    rest.remove_prefix(length);
  }
  if (rest.empty()) return std::string(text);
  std::string converted;
  for (const char c : text) converted += CharacterOf(static_cast<std::uint8_t>(c));
  return converted;
}

bool SameWord(std::string_view text, std::string_view upperWord) {
  return std::equal(text.begin(), text.end(), upperWord.begin(), upperWord.end(),
                    [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b; });
}

double AsDouble(double value) { return value; }

float AsFloat(double value) {
  if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max())) RaiseOverflow();
  return static_cast<float>(value);
}

}  // namespace

void CnfWriter::NextLine() {
  if (!text_.empty()) text_ += "\r\n";
  lineStart_ = text_.size();
  printed_ = false;
}

void CnfWriter::Separate() {
  if (text_.size() > lineStart_) text_ += ',';
}

void CnfWriter::Print(const std::string& number) {
  if (printed_) {
    const auto start = text_.begin() + static_cast<std::ptrdiff_t>(lineStart_);
    const auto column = static_cast<std::size_t>(
        std::count_if(start, text_.end(), [](char c) { return !IsContinuation(c); }));
    text_.append((kPrintZone - column % kPrintZone) % kPrintZone, ' ');
  } else {
    Separate();
  }
  printed_ = true;
  text_ += (number.starts_with('-') ? "" : " ") + number + " ";
}

template <class T>
void CnfWriter::Value(const T& value, bool printForm) {
  if constexpr (std::is_same_v<T, std::string>) {
    Separate();
    text_ += QuotedText(value);
  } else if constexpr (std::is_same_v<T, bool>) {
    Separate();
    text_ += value ? kTrue : kFalse;
  } else if (printForm) {
    Print(NumberText(value));
  } else {
    Separate();
    text_ += NumberText(value);
  }
}

template void CnfWriter::Value(const double&, bool);
template void CnfWriter::Value(const float&, bool);
template void CnfWriter::Value(const Long&, bool);
template void CnfWriter::Value(const Integer&, bool);
template void CnfWriter::Value(const bool&, bool);
template void CnfWriter::Value(const std::string&, bool);

CnfReader::CnfReader(std::string_view content) : file_(content) {
  if (file_.starts_with(kByteOrderMark)) file_.remove_prefix(kByteOrderMark.size());
}

std::string_view CnfReader::FirstLine() {
  if (file_.empty()) throw RuntimeError(kPastEnd, "The file is empty");
  NextLine();
  return std::exchange(rest_, {});
}

void CnfReader::NextLine() {
  rest_ = file_.substr(0, file_.find_first_of("\r\n"));
  file_.remove_prefix(rest_.size());
  file_.remove_prefix(file_.starts_with("\r\n") ? 2 : std::min<std::size_t>(file_.size(), 1));
  ++line_;
  value_ = 0;
}

void CnfReader::Fail(int number, const std::string& cause) const {
  throw RuntimeError(number,
                     "Line " + std::to_string(line_) + ", value " + std::to_string(value_) + ": " + cause);
}

void CnfReader::SkipBlanks() {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
}

void CnfReader::BeginValue() {
  SkipBlanks();
  while (rest_.empty() && !file_.empty()) {
    NextLine();
    SkipBlanks();
  }
  ++value_;
  if (rest_.empty() && !inStatement_)
    throw RuntimeError(kPastEnd, "The file ends after line " + std::to_string(line_));
  if (rest_.empty()) Fail(kPastEnd, "the file ends here");
  if (rest_[0] == ',') Fail(kTypeMismatch, "the value is missing");
  inStatement_ = true;
}

/// Takes a value off the line, with what separates it from the next one.
std::string_view CnfReader::EndValue(std::size_t length) {
  const std::string_view value = rest_.substr(0, length);
  rest_.remove_prefix(value.size());
  SkipBlanks();
  if (rest_.starts_with(',')) rest_.remove_prefix(1);
  return value;
}

std::string_view CnfReader::Plain() { return EndValue(rest_.find_first_of(kEndOfValue)); }

std::string CnfReader::Quoted() {
  const std::size_t close = ClosingQuote(rest_);
  const bool closed = close != std::string_view::npos;
  if (closed && EndsBefore(rest_.substr(close + 1)))
    return WithQuotesSingle(EndValue(close + 1).substr(1, close - 1));
  // So programs that did not double quotes wrote a text of one.
  if (rest_.starts_with(kLoneQuote) && EndsBefore(rest_.substr(kLoneQuote.size())))
    return WithQuotesSingle(EndValue(kLoneQuote.size()).substr(1, 1));
  Fail(kTypeMismatch,
       closed ? "a comma is expected behind the closing quote" : "the closing quote is missing");
}

void CnfReader::Discard() {
  BeginValue();
  if (rest_[0] == '"')
    Quoted();
  else
    EndValue(rest_.find(','));
}

template <class T>
void CnfReader::Number(T& value, T (*convert)(double)) {
  BeginValue();
  try {
    value = convert(StrictNumber(Plain()));
  } catch (const RuntimeError& error) {
    Fail(error.Number(), error.Number() == kOverflow ? "the number is too large" : "a number is expected");
  }
}

void CnfReader::Value(double& value) { Number(value, AsDouble); }
void CnfReader::Value(float& value) { Number(value, AsFloat); }
void CnfReader::Value(Long& value) { Number(value, ToLong); }
void CnfReader::Value(Integer& value) { Number(value, ToInteger); }

void CnfReader::Value(bool& value) {
  BeginValue();
  const std::string_view word = Plain();
  const bool isTrue = SameWord(word, kTrue);
  if (!isTrue && !SameWord(word, kFalse)) Fail(kTypeMismatch, "#TRUE# or #FALSE# is expected");
  value = isTrue;
}

void CnfReader::Value(std::string& value) {
  BeginValue();
  if (rest_[0] != '"') Fail(kTypeMismatch, "a text in quotes is expected");
  value = AsUtf8(Quoted());
}

}  // namespace kavr6
