// What differs between two images and shows in no setting.
#pragma once

#include <vector>

#include "comparison/comparison.h"

namespace kavr6 {

/// An image that can be read, and the settings that it has been found to hold.
struct ReadImage {
  const ParameterImage& image;
  const HeldSettings& held;
};

/// A row for each byte that differs and that none of the settings in `differing` explains.
std::vector<ComparedSetting> OtherData(const ReadImage& left, const ReadImage& right,
                                       const std::vector<const SettingRow*>& differing);

}  // namespace kavr6
