#include "apps/drive_simulator/trace.h"

#include <cstdio>
#include <functional>
#include <string_view>

#include "core/drive_models.h"

namespace kavr6 {
namespace {

constexpr std::size_t kMostBytesShown = 16;

std::string Format(const char* format, int value) {
  char text[32];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

int At(const std::string& bytes, std::size_t i) { return static_cast<std::uint8_t>(bytes.at(i)); }

std::string CommandText(const std::string& bytes) {
  if (bytes.size() > kMostBytesShown && bytes.back() != '\r')
    return bytes.substr(0, 1) + " and " + std::to_string(bytes.size() - 1) + " bytes";
  std::string text;
  for (const char c : bytes) {
    const int code = static_cast<std::uint8_t>(c);
    if (c == '\r') {
      text += "<CR>";
    } else if (code >= 32 && code <= 126) {
      text += c;
    } else {
      text += Format(" %d", code);
    }
  }
  return text;
}

std::string HexText(const std::string& bytes) {
  if (bytes.size() > kMostBytesShown) return std::to_string(bytes.size()) + " bytes";
  std::string text;
  for (const char c : bytes) text += Format(text.empty() ? "%02X" : " %02X", static_cast<std::uint8_t>(c));
  return text;
}

std::string Detail(const DriveEvent& event) {
  const std::string& b = event.bytes;
  if (event.meaning == "identity") return RevisionText(At(b, 0)) + " " + ModelText(At(b, 1));
  if (event.meaning == "power-up") return RevisionText(At(b, 1)) + " " + ModelText(At(b, 2));
  if (event.meaning == "revision") return RevisionText(At(b, 1)) + " " + b.substr(2);
  if (event.meaning == "alarm") return Format("%04X", At(b, 1) << 7 | At(b, 2));
  if (event.meaning == "status word" || event.meaning == "sub-revision") return b;
  return {};
}

}  // namespace

std::string Describe(const DriveEvent& event) {
  switch (event.kind) {
    case DriveEvent::Kind::Command:
      return "-> " + CommandText(event.bytes);
    case DriveEvent::Kind::Unknown:
      return "-> " + HexText(event.bytes) + "  no command";
    default:
      break;
  }
  if (event.meaning == "text") return "<- " + CommandText(event.bytes);
  const std::string detail = Detail(event);
  return "<- " + HexText(event.bytes) + "  " + event.meaning + (detail.empty() ? "" : " " + detail);
}

std::string RevisionText(int revisionByte) {
  return Format("%d", 1 + revisionByte / 100) + Format(".%02d", revisionByte % 100);
}

std::string ModelText(int code) {
  const int index = ModelIndex(code);
  return index < 0 ? Format("model %d", code)
                   : std::string(kDriveModels[static_cast<std::size_t>(index)].name);
}

}  // namespace kavr6
