// Rules that the dialogs for pulse inputs share.
#pragma once

#include "core/numbers.h"
#include "core/settings.h"
#include "dialogs/numeric_entry.h"

namespace kavr6 {

inline constexpr Long kPulseAndDirection = 0;
inline constexpr Long kCwCcwPulse = 1;
inline constexpr Long kQuadrature = 2;

/// What every mode but the pulse modes works with.
inline constexpr Long kFixedStepsPerRev = 20000;

/// The input noise filter is kept in kHz and shown in MHz.
inline std::string NoiseFilterText(Long kilohertz) { return NumberText(kilohertz / 1000.0); }
inline Long NoiseFilterOf(const TextBox& box) { return ToLong(EntryNumber(box) * 1000); }

}  // namespace kavr6
