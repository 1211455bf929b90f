// SPDX-License-Identifier: MIT
#include "app/desktop/keep_awake.h"

namespace zorvane::app {

struct Keep_Awake::State {};

Keep_Awake::Keep_Awake() = default;
Keep_Awake::~Keep_Awake() = default;
void Keep_Awake::hold(const QString&) {}
void Keep_Awake::release() {}

} // namespace zorvane::app
