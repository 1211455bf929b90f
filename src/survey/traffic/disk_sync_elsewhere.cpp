// SPDX-License-Identifier: MIT
#include "survey/traffic/disk_sync.h"

namespace zorvane::survey {

class Disk_Sync::Worker {};

Disk_Sync::Disk_Sync() = default;
Disk_Sync::Disk_Sync(Wait /*wait*/) {}
Disk_Sync::~Disk_Sync() = default;
void Disk_Sync::begin(std::FILE* /*file*/) {}
void Disk_Sync::beginFolderOf(const std::string& /*file*/) {}
bool Disk_Sync::failed() const { return false; }

} // namespace zorvane::survey
