#pragma once

#include "ui/fixed_dialog.h"

namespace zorvane {

/// `LostCom`, the notice that the controller is silent. It doesn't take the focus from an edit in progress.
class Lost_Com final : public Fixed_Dialog {
  public:
    explicit Lost_Com(QWidget* parent);
};

} // namespace zorvane
