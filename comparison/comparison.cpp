#include "comparison/comparison.h"

#include <algorithm>

#include "comparison/other_data.h"
#include "config_file/settings_file.h"
#include "motor/motor_calculations.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

using Kind = ComparedSide::Kind;

constexpr std::size_t kResonance = 76;  // place of its word in the image

/// A side and what its settings become where they are stored.
struct Part {
  const ComparedSide& side;
  HeldSettings stored;
  std::optional<ParameterImage> image = {};

  /// A drive holds nothing but what is stored.
  const HeldSettings& Stored() const { return stored; }
  const HeldSettings& Own() const { return side.kind == Kind::Drive ? stored : side.held; }
};

/// As they are in a file after they have been saved.
void GoThroughFile(Part& part) {
  if (part.side.kind != Kind::Screen) return;
  try {
    const HeldSettings& held = part.side.held;
    const FileHead head{.version = "1.0", .model = held.model, .port = held.port};
    part.stored = SideOfFile(WriteSettingsFile(head, held.settings, held.standard), held.settings).held;
  } catch (const RuntimeError&) {
    // It could not be saved.
  }
}

/// As they are in a drive after they have been sent.
void GoThroughImage(Part& part) {
  part.image = ImageOf(part.side);
  if (part.side.kind == Kind::Drive || !part.image) return;
  try {
    const Settings& own = part.side.held.settings;
    part.stored = HeldInImage(*part.image, own);
    // What comes back of these is not quite what went: see TakeLoadInertia.
    part.stored.settings.InertiaRatio = own.InertiaRatio;
    part.stored.settings.LoadInertia = own.LoadInertia;
  } catch (const RuntimeError&) {
    part.image.reset();  // nothing could read it
  }
}

bool SameMotors(const HeldSettings& one, const HeldSettings& other) {
  const auto motor = [](const Settings& record) -> const MotorRecord& { return record; };
  return one.settings.CustomMotor == other.settings.CustomMotor &&
         motor(one.settings) == motor(other.settings) && motor(one.standard) == motor(other.standard);
}

/// The load inertia travels as a frequency that hangs on the motor. It is the same where it makes the very
/// frequency that the drive holds.
void TakeLoadInertia(const Part& from, Part& drive) {
  HeldSettings probe = drive.stored;
  probe.settings.InertiaRatio = from.stored.settings.InertiaRatio;
  probe.settings.LoadInertia = from.stored.settings.LoadInertia;
  const Long held = WordAt(*drive.image, kResonance);
  try {
    const bool same = from.image && SameMotors(from.stored, drive.stored)
                          ? WordAt(*from.image, kResonance) == held
                          : ARfreq(probe.settings, RowOf(probe.standard)) == held;
    if (same) drive.stored = probe;
  } catch (const RuntimeError&) {
    // There is no such frequency.
  }
}

bool Holds(const Part& part, bool byImage, const SettingRow& row) {
  if (part.side.kind == Kind::Drive) return InImage(row, part.stored);
  return byImage || !part.side.inFile || part.side.inFile(row);
}

class RowComparison {
 public:
  RowComparison(const Part& left, const Part& right, bool byImage)
      : left_(left), right_(right), byImage_(byImage) {}

  ComparedSetting Compare(const SettingRow& row) const {
    ComparedSetting result{.section = std::string(row.section), .name = std::string(row.name)};
    const bool inLeft = Holds(left_, byImage_, row);
    const bool inRight = Holds(right_, byImage_, row);
    result.left = inLeft ? TextOf(row, left_.Own(), Digits::Few) : kNoValue;
    result.right = inRight ? TextOf(row, right_.Own(), Digits::Few) : kNoValue;
    if (!inLeft || !inRight) {
      result.likeness = Likeness::NotStored;
    } else if (!SameValue(row, left_.stored, right_.stored)) {
      result.likeness = Likeness::Differs;
      if (result.left == result.right) TellApart(row, result);
    } else if (!SameValue(row, left_.Own(), right_.Own())) {
      result.likeness = Likeness::SameAsStored;
    }
    return result;
  }

 private:
  /// Only what is stored differs, or only what a short text leaves out.
  void TellApart(const SettingRow& row, ComparedSetting& result) const {
    for (const Digits digits : {Digits::Few, Digits::Usual, Digits::All})
      for (const auto held : {&Part::Own, &Part::Stored}) {
        result.left = TextOf(row, (left_.*held)(), digits);
        result.right = TextOf(row, (right_.*held)(), digits);
        if (result.left != result.right) return;
      }
  }

  const Part& left_;
  const Part& right_;
  bool byImage_;
};

void BringToMeasure(Part& left, Part& right, bool byImage, bool byFile) {
  for (Part* part : {&left, &right}) {
    if (byFile) GoThroughFile(*part);
    if (byImage) GoThroughImage(*part);
  }
  if (byImage && right.side.kind == Kind::Drive) {
    TakeLoadInertia(left, right);
  } else if (byImage) {
    TakeLoadInertia(right, left);
  }
}

}  // namespace

Comparison Compare(const ComparedSide& left, const ComparedSide& right) {
  const auto either = [&](Kind kind) { return left.kind == kind || right.kind == kind; };
  const bool byImage = either(Kind::Drive);
  const bool byFile = !byImage && either(Kind::File);
  Part mine{left, left.held};
  Part other{right, right.held};
  BringToMeasure(mine, other, byImage, byFile);

  Comparison result{.store = byImage ? "drive" : byFile ? "file" : ""};
  result.unsendable = byImage && (!mine.image || !other.image);
  std::vector<const SettingRow*> differing;
  const RowComparison rows(mine, other, byImage);
  for (const SettingRow& row : SettingTable()) {
    result.settings.push_back(rows.Compare(row));
    if (result.settings.back().likeness == Likeness::Differs) differing.push_back(&row);
  }
  if (mine.image && other.image)
    for (ComparedSetting& data :
         OtherData({*mine.image, mine.stored}, {*other.image, other.stored}, differing))
      result.settings.push_back(std::move(data));
  const auto rest = std::stable_partition(
      result.settings.begin(), result.settings.end(),
      [](const ComparedSetting& setting) { return setting.likeness == Likeness::Differs; });
  result.differing = static_cast<int>(rest - result.settings.begin());
  return result;
}

std::string LikenessWords(const ComparedSetting& setting, const std::string& store) {
  switch (setting.likeness) {
    case Likeness::Differs:
      return "differs";
    case Likeness::SameAsStored:
      return setting.left == setting.right ? "same" : "same, as stored in the " + store;
    case Likeness::NotStored:
      return "not stored in the " + store;
    case Likeness::Same:
      break;
  }
  return setting.left == setting.right ? "same" : "same number";
}

}  // namespace kavr6
