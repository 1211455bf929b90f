// SPDX-License-Identifier: MIT
#pragma once

class QProcess;

namespace zorvane {

/// The child is asked to end when this program ends without ending it, as in a crash. Elsewhere than on Linux
/// it is left alone.
void endWithParent(QProcess& process);

} // namespace zorvane
