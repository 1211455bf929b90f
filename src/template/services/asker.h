// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zorvane {

/// Icons and buttons of a message, added up: 16 critical, 32 question, 48 exclamation, 64 information, plus 4
/// for Yes and No or 3 for Yes, No and Cancel; 0 for Ok alone.
enum Msgb_Style : int {
    Msgb_Ok = 0,
    Msgb_YesNoCancel = 3,
    Msgb_YesNo = 4,
    Msgb_Critical = 16,
    Msgb_Question = 32,
    Msgb_Exclamation = 48,
    Msgb_Information = 64,
};

/// What the user answered.
enum Msgb_Code : int {
    Msgb_Code_Ok = 1,
    Msgb_Code_Cancel = 2,
    Msgb_Code_Abort = 3,
    Msgb_Code_Retry = 4,
    Msgb_Code_Ignore = 5,
    Msgb_Code_Yes = 6,
    Msgb_Code_No = 7,
};

inline const std::string applicationTitle = "Zorvane";

/// The one way in which any part of the system tells or asks the user something.
class Asker {
  public:
    virtual ~Asker() = default;
    virtual int Msgb_Show(const std::string& prompt, int style, const std::string& title) = 0;
};

} // namespace zorvane
