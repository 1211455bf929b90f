// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/value_change.h"

#include <string>
#include <vector>

namespace zorvane {

/// Is told what the user's commands did to the values of the document, once they have ended. What polling and
/// the filling of a page put into cells is no such thing.
class Value_Watcher {
  public:
    virtual ~Value_Watcher() = default;
    /// A command changed values. `name` follows "Undo ": "change of Regulation, Set point".
    virtual void changed(const std::string& name, std::vector<Value_Change> changes) = 0;
    /// A command made the document differ from its file in a way that can't be taken back, as a value that
    /// went to the controller does.
    virtual void changedForGood() = 0;
};

} // namespace zorvane
