#include "platform/headless/transcript.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "platform/headless/describe.h"

namespace kavr6 {
namespace {

constexpr std::size_t kRow = 16;
constexpr double kLongestGap = 0.0015;  // seconds between two bytes that belong together

std::string Seconds(double time) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%8.3f", time);
  return text.data();
}

/// Whole, unless it is so long that nobody would read it.
std::string Readable(const std::string& text) {
  constexpr std::size_t kLongest = 1500;
  constexpr std::size_t kShown = 100;
  if (text.size() <= kLongest) return text;
  return text.substr(0, kShown) + " ... " + text.substr(text.size() - kShown) + ", " +
         std::to_string(text.size()) + " characters with the quotes";
}

}  // namespace

void Transcript::Step(const std::string& what) {
  Close();
  text_ += (text_.empty() ? "" : "\n") + ("# " + what) + "\n";
  lastTime_.clear();
}

void Transcript::Note(const std::string& what) {
  Close();
  Line(clock_.Now(), what);
}

bool Transcript::Continue(const std::string& what, const std::string& more) {
  Close();
  if (!text_.ends_with(what + "\n") || Seconds(clock_.Now() - begin_) != lastTime_) return false;
  text_.insert(text_.size() - 1, more);
  return true;
}

void Transcript::Wire(bool toDrive, std::span<const std::uint8_t> bytes) {
  const double now = clock_.Now();
  if (!run_ || run_->toDrive != toDrive || now - run_->end > kLongestGap) {
    Close();
    run_ = Run{.toDrive = toDrive, .begin = now, .end = now, .bytes = {}, .progress = {}};
  }
  run_->end = now;
  run_->bytes.insert(run_->bytes.end(), bytes.begin(), bytes.end());
}

bool Transcript::Progress(int percent) {
  if (!run_ || run_->end != clock_.Now()) return false;
  if (!run_->progress.empty() && percent < run_->progress.rbegin()->second) return false;
  run_->progress[run_->bytes.size()] = percent;
  return true;
}

void Transcript::Change(const std::string& name, const std::string& before, const std::string& after) {
  if (changing_ && changing_->name == name) {
    changing_->after = after;
    return;
  }
  Close();
  changing_ = {clock_.Now(), name, before, after};
}

void Transcript::Growth(const std::string& name, const std::string& more) {
  if (changing_ || (growing_ && growing_->name != name)) Close();
  if (!growing_) growing_ = {clock_.Now(), name, {}};
  growing_->more += more;
}

std::string Transcript::Text() {
  Close();
  return text_;
}

void Transcript::Close() {
  if (const auto run = std::exchange(run_, std::nullopt)) Write(*run);
  if (const auto growth = std::exchange(growing_, std::nullopt))
    Line(growth->time, growth->name + ": + " + Readable(Quoted(growth->more)));
  if (const auto change = std::exchange(changing_, std::nullopt); change && change->before != change->after)
    Line(change->time, change->name + ": " + change->before + " -> " + change->after);
}

void Transcript::Line(double time, const std::string& text) {
  const std::string shown = Seconds(time - begin_);
  text_ += (shown == lastTime_ ? std::string(8, ' ') : shown) + "  " + text + "\n";
  lastTime_ = shown;
}

void Transcript::Write(const Run& run) {
  const std::string begin = Seconds(run.begin - begin_);
  const std::string end = Seconds(run.end - begin_);
  const std::string until = end == begin ? "" : " until" + end.substr(end.rfind(' '));
  // What the tool sends is mostly a command's letter with its data.
  const std::span<const std::uint8_t> all = run.bytes;
  const bool text = BytesInWords(all).starts_with('"');
  const std::size_t letter = run.toDrive && all.size() > 1 && !text ? 1 : 0;
  std::string line = run.toDrive ? "tool  " : "drive ";
  if (letter == 1) line += BytesInWords(all.first(1)) + " ";
  const auto data = all.subspan(letter);
  if (text || data.size() <= kRow) {
    line += Readable(BytesInWords(data)) + until;
    if (!run.progress.empty()) line += " | " + std::to_string(run.progress.rbegin()->second) + " %";
    Line(run.begin, line);
    return;
  }
  const std::string rows = Rows(run, letter);
  const bool isNew = written_.insert(rows).second;
  Line(run.begin, line + std::to_string(data.size()) + " bytes" + until + (isNew ? "" : ", as before"));
  if (isNew) text_ += rows;
}

std::string Transcript::Rows(const Run& run, std::size_t from) {
  std::string rows;
  for (; from < run.bytes.size(); from += kRow) {
    const std::size_t length = std::min(kRow, run.bytes.size() - from);
    std::string row = Hex(std::span(run.bytes).subspan(from, length));
    // The last progress shown while this row was under way.
    const auto behind = run.progress.upper_bound(from + length);
    if (behind != run.progress.begin())
      row +=
          std::string(kRow * 3 - row.size(), ' ') + "| " + std::to_string(std::prev(behind)->second) + " %";
    rows += std::string(16, ' ') + row + "\n";
  }
  return rows;
}

}  // namespace kavr6
