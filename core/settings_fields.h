// The fields of the Settings record as a table: to name them, compare them or take them one by one.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "core/settings.h"

namespace kavr6 {

/// One field, those of the custom motor included.
using SettingsField = std::variant<double Settings::*, float Settings::*, Long Settings::*,
                                   Integer Settings::*, bool Settings::*, std::string Settings::*>;

struct NamedField {
  std::string_view name;
  SettingsField member;
};

/// Every field of the record, once, in its order: the custom motor first.
std::span<const NamedField> SettingsFields();

std::string_view NameOf(const SettingsField& field);

}  // namespace kavr6
