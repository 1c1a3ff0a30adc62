// Which serial devices other programs have, as their lock files tell.
#pragma once

#include <filesystem>
#include <string>

namespace kavr6 {

/// Whether a program that runs has left a lock file for the device, given by its full name without links.
/// Programs that leave none are not found. On Windows nothing is.
bool LockedByAnother(const std::string& device);

/// Where such files come and go; empty where the system has no place for them.
std::filesystem::path LockFolder();

}  // namespace kavr6
