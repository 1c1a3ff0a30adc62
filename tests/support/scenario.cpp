#include "tests/support/scenario.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>
#include <vector>

namespace kavr6 {
namespace {

constexpr std::size_t kTimeColumn = 10;
constexpr std::size_t kShortStretch = 5;

std::string ContentOf(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// The stretches that begin at the lines "## ...", or the whole text.
std::vector<std::string> RunsOf(const std::string& text) {
  std::vector<std::string> runs;
  for (const std::string& line : LinesOf(text)) {
    if (runs.empty() || line.starts_with("## ")) runs.emplace_back();
    runs.back() += line + "\n";
  }
  return runs;
}

/// On Windows paths are shown with its own strokes, two where they stand in quotes.
std::string WithOneKindOfStroke(std::string text) {
#ifdef _WIN32
  std::replace(text.begin(), text.end(), '\\', '/');
  const auto both = [](char a, char b) { return a == '/' && b == '/'; };
  text.erase(std::unique(text.begin(), text.end(), both), text.end());
#endif
  return text;
}

std::string WithoutTime(const std::string& line) {
  return line.size() > kTimeColumn && !line.starts_with('#') ? line.substr(kTimeColumn) : "";
}

/// Each long stretch of lines that stand in `known` too becomes one line with their number.
std::string WithoutKnownLines(const std::string& text, const std::string& known) {
  std::set<std::string> there;
  for (const std::string& line : LinesOf(known)) there.insert(WithoutTime(line));
  there.erase("");
  std::string kept;
  std::vector<std::string> stretch;
  const auto close = [&] {
    if (stretch.size() > kShortStretch)
      stretch = {stretch.front().substr(0, kTimeColumn) + "... " + std::to_string(stretch.size()) +
                 " lines as there"};
    for (const std::string& line : stretch) kept += line + "\n";
    stretch.clear();
  };
  for (const std::string& line : LinesOf(text)) {
    if (!there.contains(WithoutTime(line))) close();
    stretch.push_back(line);
    if (!there.contains(WithoutTime(line))) close();
  }
  close();
  return kept;
}

/// From the first line that differs to the last, with what stands around them.
std::string Difference(const std::string& expected, const std::string& got) {
  const std::vector<std::string> a = LinesOf(expected);
  const std::vector<std::string> b = LinesOf(got);
  std::size_t same = 0;
  while (same < a.size() && same < b.size() && a[same] == b[same]) ++same;
  std::size_t tail = 0;
  while (tail < a.size() - same && tail < b.size() - same && a[a.size() - 1 - tail] == b[b.size() - 1 - tail])
    ++tail;
  std::string text;
  const auto show = [&](const char* mark, const std::vector<std::string>& lines, std::size_t from,
                        std::size_t to) {
    for (std::size_t i = from; i < to; ++i) text += mark + lines[i] + "\n";
  };
  show("  ", a, same < 3 ? 0 : same - 3, same);
  show("- ", a, same, a.size() - tail);
  show("+ ", b, same, b.size() - tail);
  return text;
}

/// Without the remark in brackets.
std::string StepsOf(const std::string& heading) {
  const std::string steps = heading.substr(2);
  return steps.ends_with(')') ? steps.substr(0, steps.rfind(" (")) : steps;
}

}  // namespace

void Scenario::Play(const std::string& path) {
  const std::string expected = ContentOf(path);
  std::string text;
  int line = 0;
  for (const std::string& run : RunsOf(expected)) {
    Scenario scenario;
    scenario.path_ = path;
    scenario.line_ = line;
    const bool named = run.starts_with("## ");
    if (named) text += (text.empty() ? "" : "\n") + LinesOf(run).front() + "\n\n";
    text += scenario.TranscriptOf(run);
    if (scenario.failed_) return;
    line = scenario.line_;
  }
  if (WithOneKindOfStroke(text) == WithOneKindOfStroke(expected)) return;
  if (std::getenv("KAVR6_WRITE_TRANSCRIPTS") != nullptr)
    std::ofstream(path.substr(0, path.rfind('.')) + ".got", std::ios::binary) << text;
  ADD_FAILURE_AT(path.c_str(), 1) << "went otherwise, - expected, + got:\n" << Difference(expected, text);
}

std::string Scenario::TranscriptOf(const std::string& text) {
  std::string before;
  for (const std::string& line : LinesOf(text)) {
    ++line_;
    if (failed_ || !line.starts_with("# ")) continue;
    if (recorder == nullptr) before += line + "\n";
    DoHeading(line);
  }
  try {
    scene.desktop.CheckNothingLeft();
  } catch (const HeadlessFault& fault) {
    ADD_FAILURE_AT(path_.c_str(), line_) << fault.what();
  }
  if (recorder == nullptr) {
    ADD_FAILURE_AT(path_.c_str(), line_) << "nothing is started";
    return before;
  }
  const std::string folder = path_.substr(0, path_.rfind('/') + 1);
  const std::string known =
      likeThere_.empty() ? "" : WithOneKindOfStroke(ContentOf(folder + likeThere_ + ".txt"));
  const std::string told = WithOneKindOfStroke(recorder->Text());
  return before + (told.starts_with('#') ? "\n" : "") + WithoutKnownLines(told, known);
}

void Scenario::DoHeading(const std::string& heading) {
  if (recorder != nullptr) recorder->Step(heading.substr(2));
  try {
    scene.desktop.Enter([&] { Do(Words(StepsOf(heading))); });
  } catch (const ProgramEnded&) {
    // The transcript says so.
  } catch (const std::exception& error) {
    ADD_FAILURE_AT(path_.c_str(), line_) << heading << ": " << error.what();
    failed_ = true;
  }
  if (recorder != nullptr) recorder->Rest();
}

void Scenario::Do(Words steps) {
  while (steps.More()) {
    const std::string word = Words(steps).Next();
    Words step = word == "later" || word == "meanwhile" ? Words(steps.Rest()) : steps.Step();
    const StepDone done = FindStep(step.Next());
    if (done == nullptr) throw std::runtime_error("no step: " + word);
    done(*this, step);
    if (step.More()) throw std::runtime_error("too much: " + step.Rest());
  }
}

void Scenario::Record(const std::string& likeThere, Recorder::Part part) {
  likeThere_ = likeThere;
  recorder = std::make_unique<Recorder>(scene, part);
}

Form& Scenario::Window(const std::string& name) {
  for (Form* form : scene.Forms())
    if (form->Name() == name) return *form;
  throw std::runtime_error("no window " + name);
}

Control& Scenario::ControlOf(const std::string& name) {
  const std::size_t dot = name.find('.');
  const Form& form = Window(dot == std::string::npos ? scene.desktop.ActiveFormName() : name.substr(0, dot));
  if (Control* const control = form.Find(name.substr(dot + 1))) return *control;
  throw std::runtime_error("no control " + name + " in " + form.Name());
}

}  // namespace kavr6
