// SPDX-License-Identifier: MIT
#pragma once

#include "template/pro_leer_archivo.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zorvane::fuzz {

/// The first so many lines of a text, each with its end.
[[nodiscard]] std::string_view firstLines(std::string_view text, std::int32_t count);

/// One file in memory, whatever its name.
class One_File : public Files {
  public:
    std::string text;

    [[nodiscard]] bool exists(const std::string&) override { return true; }
    [[nodiscard]] std::string read(const std::string&) override { return text; }
    [[nodiscard]] std::unique_ptr<Text_Writer> create(const std::string&) override;
    [[nodiscard]] std::vector<std::string> list(const std::string&) override { return {}; }
};

/// A document that reads what the fuzzer made up, as opening a file does: run-time failures end the reading
/// and no more.
class Fuzz_Document {
  public:
    Fuzz_Document();

    /// The line (from 1) on which a run-time failure ended the reading, or 0 for one after the last line.
    std::optional<std::int32_t> readTemplate(std::string_view text);
    /// Whether the file was read whole; nothing when a run-time failure ended it.
    std::optional<bool> readConfiguration(std::string_view text);

    /// The text of the document's file. Nothing when it is too large for a fuzzer's run, or when writing it
    /// failed.
    std::optional<std::string> written();

    /// Writes the document, unless it is too large for a fuzzer's run, and reads what was written. A document
    /// whose file fits its own template, as every one does that has a column wherever it has a row, must take
    /// it back.
    void writeAndReadBack();

    [[nodiscard]] Declara_Zorvane& document() noexcept { return document_; }

    /// Whether the document is small enough for a fuzzer's run, and has a column wherever it has a row.
    [[nodiscard]] bool mayBeWritten() const;

  private:
    [[nodiscard]] Reading_Services services();

    Declara_Zorvane document_;
    One_File files_;
};

} // namespace zorvane::fuzz
