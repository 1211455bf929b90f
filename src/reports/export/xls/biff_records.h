// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane {

/// The records of a BIFF8 workbook stream that reports are made of. Their numbers and contents are those of
/// "[MS-XLS]: Excel Binary File Format (.xls) Structure", 2.3 and 2.4
/// (https://learn.microsoft.com/openspecs/office_file_formats/ms-xls).
enum class Biff : std::uint16_t {
    Eof = 0x000A,
    CalcMode = 0x000D,
    Header = 0x0014,
    Footer = 0x0015,
    LeftMargin = 0x0026,
    RightMargin = 0x0027,
    TopMargin = 0x0028,
    BottomMargin = 0x0029,
    Font = 0x0031,
    Continue = 0x003C,
    Window1 = 0x003D,
    CodePage = 0x0042,
    ColInfo = 0x007D,
    BoundSheet = 0x0085,
    Palette = 0x0092,
    Setup = 0x00A1,
    Xf = 0x00E0,
    Sst = 0x00FC,
    LabelSst = 0x00FD,
    Dimensions = 0x0200,
    Blank = 0x0201,
    Number = 0x0203,
    Window2 = 0x023E,
    Style = 0x0293,
    Format = 0x041E,
    Bof = 0x0809,
};

inline constexpr std::size_t biffLargestRecord = 8224; ///< bytes of data (2.1.4)

/// Bytes of a record, numbers with their low byte first.
class Biff_Bytes {
  public:
    Biff_Bytes& u8(std::uint32_t value);
    Biff_Bytes& u16(std::uint32_t value);
    Biff_Bytes& u32(std::uint32_t value);
    Biff_Bytes& real(double value);
    /// A text (Windows-1252) as UTF-16, after its length in 8 or 16 bits and the mark of 16-bit characters.
    Biff_Bytes& shortText(std::string_view text);
    Biff_Bytes& longText(std::string_view text);

    [[nodiscard]] const std::string& bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

/// A workbook stream being written.
class Biff_Stream {
  public:
    void record(Biff type, const Biff_Bytes& data) { record(type, data.bytes()); }
    void record(Biff type, std::string_view data);
    /// Records that are complete already.
    void append(std::string_view records) { bytes_ += records; }
    /// The table of all texts, which goes on in further records where it must. `uses` is how often cells name
    /// one of them.
    void textTable(const std::vector<std::string>& texts, std::uint32_t uses);

    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    /// Overwrites four bytes.
    void patch(std::size_t place, std::uint32_t value);
    [[nodiscard]] std::string take() { return std::move(bytes_); }

  private:
    std::string bytes_;
};

/// Windows-1252 as UTF-16, low byte first.
[[nodiscard]] std::string toUtf16(std::string_view text);

} // namespace zorvane
