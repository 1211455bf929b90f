#include "ui/main/iconic.h"

namespace zorvane {

bool askForIconic(const QWidget& /*window*/) { return false; }

} // namespace zorvane
