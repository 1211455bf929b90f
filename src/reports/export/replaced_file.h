// SPDX-License-Identifier: MIT
#pragma once

#include "values/file_descriptor.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct stat;

namespace zorvane {

/// A file that comes into its place as a whole or not at all. It is written beside its place, where nobody
/// sees it, and put there by `finish`; what it replaces is whole until then and hands its permissions and
/// attributes on. Of a link, that which it leads to is replaced. Where no file can be made beside, or where
/// another one would not be the same (it has several names, or an owner that can't be given), the bytes wait
/// for `finish` and go into the file that is there, once the disk has said that it has room for them. Devices
/// and pipes get them in the same way.
class Replaced_File {
  public:
    /// The path is UTF-8. Failures: 61 disk full, 70 no permission, 76 no such folder, 75 anything else.
    explicit Replaced_File(const std::string& nativePath);
    /// Without `finish` nothing has happened.
    ~Replaced_File();
    Replaced_File(const Replaced_File&) = delete;
    Replaced_File& operator=(const Replaced_File&) = delete;

    /// Adds bytes. Failures as above.
    void write(std::string_view bytes);
    /// Puts the file in its place, where it would outlast a power cut. Failures as above.
    void finish();

  private:
    void openBeside();
    [[nodiscard]] File_Descriptor unnamedFile(unsigned mode) const;
    [[nodiscard]] File_Descriptor namedFile(unsigned mode);
    bool takeFreeName(const std::function<bool(const std::string& name)>& make);
    [[nodiscard]] bool looksLikeOriginal(const File_Descriptor& file) const;
    [[nodiscard]] bool moveIntoPlace();
    void writeInPlace();

    std::string place_;                     ///< where the links end
    bool replaceable_ = true;               ///< another file may take the place
    File_Descriptor original_;              ///< what is there; a new file where none can be made beside
    std::unique_ptr<struct ::stat> before_; ///< of what is there
    File_Descriptor beside_;
    std::string besideName_;   ///< empty while the file beside has no name
    bool madeInPlace_ = false; ///< `original_` was made here, and goes unless it is finished
    std::string kept_;         ///< the bytes, while there is no file beside
};

} // namespace zorvane
