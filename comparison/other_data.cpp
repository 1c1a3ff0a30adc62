#include "comparison/other_data.h"

#include <algorithm>

#include "image/image_layout.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

bool SameBytes(const ParameterImage& one, const ParameterImage& other, const ImageField& field) {
  const auto begin = [&](const ParameterImage& image) { return image.begin() + field.position; };
  return std::equal(begin(one), begin(one) + field.width, begin(other));
}

HeldSettings Read(const ParameterImage& image) {
  Settings start;
  InitVars(start);
  return HeldInImage(image, start);
}

/// The images that the settings of one make again, as it is read and as it has been found.
std::vector<ParameterImage> Again(const ReadImage& read) {
  std::vector<ParameterImage> images;
  for (const HeldSettings& held : {Read(read.image), read.held}) {
    ComparedSide side;
    side.held = held;
    side.row = RowOf(held.standard);
    if (const auto image = ImageOf(side)) images.push_back(*image);
  }
  return images;
}

class Explanation {
 public:
  Explanation(const ReadImage& left, const ReadImage& right, const std::vector<const SettingRow*>& differing)
      : left_(left.image),
        right_(right.image),
        heldRight_(Read(right.image)),
        againLeft_(Again(left)),
        againRight_(Again(right)),
        differing_(differing) {}

  bool Holds(const ImageField& field) const { return FollowsFromSettings(field) || ChangesDiffering(field); }

 private:
  /// Both sides have these bytes from their settings, and these differ then.
  bool FollowsFromSettings(const ImageField& field) const {
    const auto make = [&](const std::vector<ParameterImage>& again, const ParameterImage& image) {
      return std::ranges::any_of(again,
                                 [&](const ParameterImage& one) { return SameBytes(one, image, field); });
    };
    return make(againLeft_, left_) && make(againRight_, right_);
  }
  /// With the left bytes in its place the right image holds another value of a setting that differs.
  bool ChangesDiffering(const ImageField& field) const {
    ParameterImage mixed = right_;
    std::copy_n(left_.begin() + field.position, field.width, mixed.begin() + field.position);
    try {
      const HeldSettings held = Read(mixed);
      return std::ranges::any_of(differing_,
                                 [&](const SettingRow* row) { return !SameValue(*row, held, heldRight_); });
    } catch (const RuntimeError&) {
      return false;
    }
  }

  const ParameterImage& left_;
  const ParameterImage& right_;
  HeldSettings heldRight_;
  std::vector<ParameterImage> againLeft_;
  std::vector<ParameterImage> againRight_;
  const std::vector<const SettingRow*>& differing_;
};

}  // namespace

std::vector<ComparedSetting> OtherData(const ReadImage& left, const ReadImage& right,
                                       const std::vector<const SettingRow*>& differing) {
  std::vector<ComparedSetting> rows;
  const Explanation explanation(left, right, differing);
  for (const ImageField& field : ImageLayout()) {
    const bool sum = field.write == nullptr;  // it goes with the others
    if (sum || SameBytes(left.image, right.image, field) || explanation.Holds(field)) continue;
    for (int at = field.position; at < field.position + field.width; ++at) {
      const auto place = static_cast<std::size_t>(at);
      if (left.image[place] != right.image[place])
        rows.push_back({Likeness::Differs, "Other data", "Byte " + std::to_string(at),
                        std::to_string(left.image[place]), std::to_string(right.image[place])});
    }
  }
  return rows;
}

}  // namespace kavr6
