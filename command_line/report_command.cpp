#include "command_line/report_command.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "command_line/json.h"
#include "command_line/text_print.h"
#include "platform/path_text.h"
#include "platform/runtime_error.h"
#include "reports/report_lines.h"

namespace kavr6 {
namespace {

std::string DocumentOf(const TextPrint& print) {
  const PageMargins& margins = print.Margins();
  std::vector<std::string> lines;
  for (const TextLine& line : print.Lines())
    lines.push_back(JsonObject({{"column", std::to_string(line.column)},
                                {"text", JsonText(line.text)},
                                {"font", JsonText(line.font.name)},
                                {"points", std::to_string(line.font.points)},
                                {"bold", line.font.bold ? "true" : "false"}}));
  return JsonObject({{"title", JsonText(margins.title)},
                     {"file", JsonText(margins.file)},
                     {"remark", JsonText(margins.remark)},
                     {"lines", JsonList(lines)}});
}

ExitCode SavePdf(const CommandMachine& machine, const CommandOptions& options, DriveSession& session,
                 const TextPrint& print) {
  for (const auto& [file, what] :
       {std::pair{options.files[0], "holds the settings"}, std::pair{options.motors, "is the motor table"}}) {
    std::error_code error;
    if (!std::filesystem::equivalent(PathOf(file), PathOf(options.pdf), error)) continue;
    session.boxes.Tell(options.pdf + " " + what + " and is not written over");
    return ExitCode::BadUse;
  }
  session.Interruption = options.pdf + " has not been written.";
  try {
    machine.files.Replace(options.pdf, machine.MakePdf(DocumentOf(print)));
  } catch (const RuntimeError& failure) {
    session.boxes.Tell(options.pdf + " cannot be written: " + failure.what());
    return ExitCode::BadFile;
  }
  if (options.json) {
    machine.out << JsonObject({{"result", JsonText("report")}, {"pdf", JsonText(options.pdf)}}) << "\n";
  } else {
    machine.out << "written: " << options.pdf << "\n";
  }
  return ExitCode::Done;
}

}  // namespace

ExitCode ReportCommand(const CommandMachine& machine, const CommandOptions& options, DriveSession& session) {
  if (const ExitCode code = session.ReadFile(options.files[0]); code != ExitCode::Done) return code;
  TextPrint print;
  print.SetMargins(ReportMargins(session.state));
  ReportLines({session.state, session.settings, session.motorTable}, print).Print();
  if (!options.pdf.empty()) return SavePdf(machine, options, session, print);
  std::vector<std::string> texts;
  for (const TextLine& line : print.Lines())
    texts.push_back(std::string(static_cast<std::size_t>(line.column), ' ') + line.text);
  if (!options.json) {
    for (const std::string& text : texts) machine.out << text << "\n";
    return ExitCode::Done;
  }
  std::ranges::transform(texts, texts.begin(), JsonText);
  machine.out << JsonObject({{"result", JsonText("report")}, {"lines", JsonList(texts)}}) << "\n";
  return ExitCode::Done;
}

}  // namespace kavr6
