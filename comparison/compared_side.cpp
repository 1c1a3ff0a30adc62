#include "comparison/compared_side.h"

#include <algorithm>

#include "config_file/settings_file.h"
#include "core/motion_codes.h"
#include "core/numbers.h"
#include "image/field_kinds.h"
#include "motor/motor_calculations.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

// Places of the image for which reading does not do.
constexpr std::size_t kControlMode = 44;
constexpr std::size_t kCustomLeadAngle = 106;
constexpr std::size_t kStandardLeadAngle = 142;

Settings InRecord(const MotorRecord& motor) {
  Settings record;
  static_cast<MotorRecord&>(record) = motor;
  return record;
}

/// A word of the speed, and one of degrees behind it.
void ReadLeadAngle(const ParameterImage& image, std::size_t place, MotorRecord& motor) {
  motor.LeadAngleRps = ToLong(field_kinds::ToSpeed(WordAt(image, place)));
  motor.LeadAngleDeg = WordAt(image, place + 2);
}

}  // namespace

ComparedSide SideOfScreen(const Settings& settings, const std::optional<MotorRow>& row, int model, int port) {
  ComparedSide side;
  side.held = {.settings = settings,
               .standard = InRecord(row ? RecordOf(*row) : MotorRecord()),
               .model = ToInteger(model),
               .port = ToInteger(port)};
  side.row = row;
  return side;
}

ComparedSide SideOfFile(const std::string& content, const Settings& base) {
  ComparedSide side;
  side.kind = ComparedSide::Kind::File;
  side.held.settings = base;
  const FileReadActions take{.SelectModel = [&](Integer row) { side.held.model = row; },
                             .SelectPort = [&](Integer row) { side.held.port = row; }};
  const MotorRecord motor = ReadSettingsFile(content, side.held.settings, InTheirLists(take));
  side.held.standard = InRecord(motor);
  side.row = RowOf(motor);
  side.inFile = [version = VersionOfFile(content)](const SettingRow& row) {
    const auto* const field = std::get_if<SettingsField>(&row.member);
    return field == nullptr || FileHolds(version, *field);
  };
  return side;
}

ComparedSide SideOfDrive(std::span<const Byte> image) {
  if (image.size() != kImageSize) RaiseSubscript();
  ComparedSide side;
  side.kind = ComparedSide::Kind::Drive;
  std::ranges::copy(image, side.image.emplace().begin());
  Settings start;
  InitVars(start);
  side.held = HeldInImage(*side.image, start);
  return side;
}

HeldSettings HeldInImage(const ParameterImage& image, const Settings& base) {
  HeldSettings held{.settings = base};
  UploadedMotor uploaded = DecodeImage(image, held.settings);
  ReadLeadAngle(image, kCustomLeadAngle, held.settings);
  ReadLeadAngle(image, kStandardLeadAngle, uploaded.Motor);
  CalcLoadInertia(held.settings, RowOf(uploaded.Motor), uploaded.ARfreq);
  held.standard = InRecord(uploaded.Motor);
  held.velocityOptions =
      image[kControlMode] >= kControlVelocity && image[kControlMode] <= kControlVelocityLast;
  return held;
}

std::optional<ParameterImage> ImageOf(const ComparedSide& side) {
  if (side.image) return side.image;
  if (!side.row) return std::nullopt;
  try {
    return WholeImage(side.held.settings, *side.row);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

}  // namespace kavr6
