#include "tests/support/scenario.h"

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>
#include <vector>

namespace kavr6 {
namespace {

constexpr std::size_t kTimeColumn = 10;
constexpr std::size_t kShortStretch = 5;

/// "GoodDownload" gives "good_download".
std::string FileNameOf(const std::string& testName) {
  std::string name;
  for (const char c : testName) {
    const bool capital = std::isupper(static_cast<unsigned char>(c)) != 0;
    if (capital && !name.empty()) name += '_';
    name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return name;
}

/// Of a test's source file, whose own path the compiler may have made relative to wherever it ran.
std::string FolderOf(const std::string& file) {
  const std::size_t from = file.rfind("tests/");
  return KAVR6_SOURCE "/" + file.substr(from, file.rfind('/') - from);
}

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

}  // namespace

void ExpectTranscript(const std::string& folder, const std::string& name, const std::string& text) {
  const std::string path = folder + "/scenarios/" + name;
  const std::string expected = ContentOf(path + ".txt");
  if (text == expected) return;
  if (std::getenv("KAVR6_WRITE_TRANSCRIPTS") != nullptr)
    std::ofstream(path + ".got", std::ios::binary) << text;
  ADD_FAILURE() << name << " went otherwise, - expected, + got:\n" << Difference(expected, text);
}

void Scenario::TearDown() {
  if (recorder == nullptr) return;
  EXPECT_NO_THROW(desktop.CheckNothingLeft());
  const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
  const std::string folder = FolderOf(test.file());
  const std::string known = likeThere_.empty() ? "" : ContentOf(folder + "/scenarios/" + likeThere_ + ".txt");
  ExpectTranscript(folder, FileNameOf(test.name()), WithoutKnownLines(recorder->Text(), known));
  recorder.reset();
}

void Scenario::Start(const std::string& likeThere, const std::string& answers) {
  likeThere_ = likeThere;
  recorder = std::make_unique<Recorder>(scene);
  Do(
      "start", [this] { scene.program.Start(); }, answers);
}

void Scenario::StartUnseen() {
  scene.program.Start();
  Delay(desktop, 0.5);  // the names of the devices come a little later
  recorder = std::make_unique<Recorder>(scene);
}

void Scenario::Answer(const std::string& answers, double after) {
  static const std::string kLetters = "OCYN";  // in the order of BoxAnswer
  for (const char letter : answers)
    scene.desktop.Expect({.answer = static_cast<BoxAnswer>(kLetters.find(letter)), .after = after});
}

void Scenario::Do(const std::string& what, const std::function<void()>& action, const std::string& answers) {
  Answer(answers);
  recorder->Step(what);
  try {
    scene.desktop.Enter(action);
  } catch (const ProgramEnded&) {
    // The transcript says so.
  }
  recorder->Rest();
}

void Scenario::Click(ClickableControl& control, const std::string& answers) {
  Do(
      "click " + control.Name(), [&] { control.Click(); }, answers);
}

void Scenario::Click(MenuItem& item, const std::string& answers) {
  Do(
      "menu " + item.Name(), [&] { item.Click(); }, answers);
}

void Scenario::Select(ListBox& list, int row, const std::string& answers) {
  Do(
      "select row " + std::to_string(row) + " of " + list.Name(), [&] { list.Select(row); }, answers);
}

void Scenario::Wait(double seconds) {
  Do("wait " + NumberOf(seconds) + " s", [&] { Delay(desktop, seconds); });
}

void Scenario::Later(double seconds, const std::string& what, const std::function<void()>& action) {
  scene.desktop.CallAfter(seconds, [this, what, action] {
    recorder->Note("# " + what);
    action();
  });
}

}  // namespace kavr6
