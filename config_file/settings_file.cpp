#include "config_file/settings_file.h"

#include <algorithm>

#include "config_file/cnf_layout.h"
#include "config_file/cnf_text.h"
#include "core/drive_models.h"
#include "core/drive_state.h"
#include "core/numbers.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

using Of = CnfBlock::Of;

bool HasLine(const VersionTriple& version, Integer since) {
  return version.major > 0 || version.minor > 0 || version.build >= since;
}

void ReadLine(CnfReader& reader, const CnfLine& line, Settings& record) {
  if (!line.continues) reader.NextStatement();
  for (const SettingsField& field : line.fields)
    std::visit([&](auto member) { reader.Value(record.*member); }, field);
  if (line.mend != nullptr) line.mend(record);
}

void ReadLines(CnfReader& reader, const std::vector<CnfLine>& lines, const VersionTriple& version,
               Settings& record) {
  for (const CnfLine& line : lines) {
    if (HasLine(version, line.since)) {
      ReadLine(reader, line, record);
    } else if (line.ifAbsent != nullptr) {
      line.ifAbsent(record);
    }
  }
}

void WriteLine(CnfWriter& writer, const CnfLine& line, const Settings& record, bool printForm) {
  if (!line.continues) writer.NextLine();
  for (const SettingsField& field : line.fields)
    std::visit([&](auto member) { writer.Value(record.*member, printForm); }, field);
}

template <class Action>
auto OnLine(int line, Action action) {
  try {
    return action();
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.Number(), "Line " + std::to_string(line) + ": " + error.what());
  }
}

VersionTriple ReadVersion(CnfReader& reader) {
  const std::string_view text = reader.FirstLine();
  return OnLine(reader.Line(), [&] { return ParseVersion(text); });
}

void ReadModel(CnfReader& reader, const FileReadActions& actions) {
  reader.NextStatement();
  Integer row = 0;
  reader.Value(row);
  const int line = reader.Line();
  reader.Discard();
  OnLine(line, [&] { actions.SelectModel(row); });
}

void ReadPort(CnfReader& reader, const FileReadActions& actions) {
  reader.NextStatement();
  Integer row = 0;
  reader.Value(row);
  OnLine(reader.Line(), [&] { actions.SelectPort(row); });
}

}  // namespace

VersionTriple ParseVersion(std::string_view text) {
  const auto whole = [&](std::size_t from, std::size_t count = std::string_view::npos) {
    try {
      return ToInteger(StrictNumber(text.substr(from, count)));
    } catch (const RuntimeError& error) {
      throw RuntimeError(error.Number(), "there is no version number");
    }
  };
  const std::size_t first = text.find('.');
  if (first == std::string_view::npos) return {whole(0), 0, 0};
  const std::size_t second = text.find('.', first + 1);
  if (second == std::string_view::npos) return {whole(0, first), whole(first + 1), 0};
  // The minor number takes in the second point and some digits of the build: "1.9.95" has the minor number
  // 9.9, thus 10. Files in use are read so; nothing asks more than whether it is above 0.
  return {whole(0, first), whole(first + 1, second), whole(second + 1)};
}

FileReadActions InTheirLists(const FileReadActions& actions) {
  const auto checked = [](Integer row, std::size_t count, const std::string& what) {
    if (row < -1 || row >= static_cast<Integer>(count))
      throw RuntimeError(380, "there is no " + what + " with the index " + std::to_string(row));
    return row;
  };
  return {.SelectModel =
              [=](Integer row) { actions.SelectModel(checked(row, kDriveModels.size(), "drive model")); },
          .SelectPort = [=](Integer row) { actions.SelectPort(checked(row, kPortCount, "serial port")); }};
}

VersionTriple VersionOfFile(std::string_view content) {
  CnfReader reader(content);
  return ReadVersion(reader);
}

bool FileHolds(const VersionTriple& version, const SettingsField& field) {
  for (const CnfBlock& block : CnfLayout())
    for (const CnfLine& line : block.lines)
      if (std::ranges::find(line.fields, field) != line.fields.end())
        return HasLine(version, line.since) || line.ifAbsent != nullptr;
  return false;
}

std::string WriteSettingsFile(const FileHead& head, const Settings& settings, const MotorRecord& row) {
  Settings rowRecord;
  static_cast<MotorRecord&>(rowRecord) = row;
  CnfWriter writer;
  writer.Bare(head.version);
  writer.NextLine();
  writer.Value(head.model);
  writer.Value(std::string("; drive model"));
  for (const CnfBlock& block : CnfLayout()) {
    for (const CnfLine& line : block.lines)
      WriteLine(writer, line, block.of == Of::Row ? rowRecord : settings, block.of == Of::Row);
    if (block.of != Of::Port) continue;
    writer.NextLine();
    writer.Value(head.port);
  }
  return writer.Text();
}

MotorRecord ReadSettingsFile(std::string_view content, Settings& settings, const FileReadActions& actions) {
  CnfReader reader(content);
  const VersionTriple version = ReadVersion(reader);
  ReadModel(reader, actions);
  Settings rowRecord;
  for (const CnfBlock& block : CnfLayout()) {
    if (block.of == Of::Port) ReadPort(reader, actions);
    ReadLines(reader, block.lines, version, block.of == Of::Row ? rowRecord : settings);
  }
  return rowRecord;
}

}  // namespace kavr6
