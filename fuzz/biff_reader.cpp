// SPDX-License-Identifier: MIT
#include "fuzz/biff_reader.h"

#include "fuzz/require.h"
#include "reports/export/xls/biff_records.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <optional>

namespace zorvane::fuzz {

namespace {

// What the format, or the spreadsheet programs that read it, have room for.
constexpr std::size_t mostCellFormats = 4000;
constexpr std::size_t longestPageText = 255;
constexpr std::size_t longestNumberFormat = 255;
constexpr std::uint32_t firstOwnFormat = 164;

std::uint64_t numberAt(std::string_view bytes, std::size_t place, std::size_t length) {
    require(place + length <= bytes.size(), "a record has all its numbers");
    std::uint64_t number = 0;
    for (std::size_t index = length; index > 0; --index)
        number = number << 8U | static_cast<unsigned char>(bytes[place + index - 1]);
    return number;
}

std::uint32_t wordAt(std::string_view bytes, std::size_t place) {
    return static_cast<std::uint32_t>(numberAt(bytes, place, 2));
}

/// UTF-16, low byte first, of characters that need no pair.
std::string utf8Of(std::string_view wide) {
    std::string text;
    for (std::size_t place = 0; place < wide.size(); place += 2) {
        const std::uint32_t code = wordAt(wide, place);
        require(code < 0xD800 || code > 0xDFFF, "a text is UTF-16 without pairs");
        if (code < 0x80) {
            text += static_cast<char>(code);
        } else if (code < 0x800) {
            text += static_cast<char>(0xC0U | code >> 6U);
            text += static_cast<char>(0x80U | (code & 0x3FU));
        } else {
            text += static_cast<char>(0xE0U | code >> 12U);
            text += static_cast<char>(0x80U | (code >> 6U & 0x3FU));
            text += static_cast<char>(0x80U | (code & 0x3FU));
        }
    }
    return text;
}

struct Record {
    std::size_t place;
    Biff type;
    std::string_view data;
};

std::vector<Record> recordsOf(std::string_view stream) {
    std::vector<Record> records;
    for (std::size_t place = 0; place < stream.size();) {
        const auto type = static_cast<Biff>(wordAt(stream, place));
        const std::size_t length = wordAt(stream, place + 2);
        require(length <= biffLargestRecord && place + 4 + length <= stream.size(), "a record has room");
        records.push_back({place, type, stream.substr(place + 4, length)});
        place += 4 + length;
    }
    return records;
}

/// The table of texts, which goes on from record to record.
class Text_Table {
  public:
    void begin(std::string_view data) {
        uses = numberAt(data, 0, 4);
        left_ = numberAt(data, 4, 4);
        goOn(data.substr(8));
    }

    void goOn(std::string_view data) {
        if (missing_ > 0) takeCharacters(data);
        while (!data.empty()) {
            require(left_ > 0, "the table has no more texts than it says");
            --left_;
            missing_ = wordAt(data, 0);
            data.remove_prefix(2);
            text_.clear();
            takeCharacters(data);
        }
    }

    [[nodiscard]] bool whole() const { return left_ == 0 && missing_ == 0; }

    std::vector<std::string> texts;
    std::uint64_t uses = 0;

  private:
    /// The mark of wide characters, and as many of the text's characters as the record has.
    void takeCharacters(std::string_view& data) {
        require(!data.empty() && data.front() == 1, "characters are marked as wide");
        data.remove_prefix(1);
        const std::size_t count = std::min(missing_, data.size() / 2);
        text_ += data.substr(0, count * 2);
        data.remove_prefix(count * 2);
        missing_ -= count;
        if (missing_ == 0)
            texts.push_back(utf8Of(text_));
        else
            require(data.empty(), "a text is broken at the end of a record only");
    }

    std::uint64_t left_ = 0;
    std::size_t missing_ = 0; ///< characters of the text that is being read
    std::string text_;
};

class Workbook_Reader {
  public:
    explicit Workbook_Reader(const std::vector<Record>& records) : records_(records) {}

    std::vector<Sheet_Cells> sheets() && {
        beginStream(0x0005);
        while (records_.at(next_).type != Biff::Eof)
            takeGlobal(records_.at(next_++));
        ++next_;
        require(texts_.whole(), "the table of texts is whole");
        require(cellFormats_ <= mostCellFormats, "there are no more looks than programs read");
        std::vector<Sheet_Cells> sheets;
        for (const std::uint32_t place : sheetPlaces_) {
            require(next_ < records_.size() && records_[next_].place == place,
                    "a sheet lies where it should");
            sheets.push_back(takeSheet());
        }
        require(next_ == records_.size() && uses_ == texts_.uses, "the workbook has nothing else");
        return sheets;
    }

  private:
    void beginStream(std::uint32_t kind) {
        const Record& record = records_.at(next_++);
        require(record.type == Biff::Bof && wordAt(record.data, 0) == 0x0600 &&
                    wordAt(record.data, 2) == kind,
                "a stream begins with its kind");
    }

    void takeGlobal(const Record& record) {
        if (record.type == Biff::BoundSheet)
            sheetPlaces_.push_back(static_cast<std::uint32_t>(numberAt(record.data, 0, 4)));
        if (record.type == Biff::Font) {
            ++fonts_;
            require(record.data.size() == 16 + 2 * numberAt(record.data, 14, 1), "a font's name is whole");
        }
        if (record.type == Biff::Format) {
            require(wordAt(record.data, 0) == firstOwnFormat + formats_++, "number formats are counted");
            takeText(record.data.substr(2), longestNumberFormat);
        }
        if (record.type == Biff::Xf) takeCellFormat(record.data);
        if (record.type == Biff::Sst) texts_.begin(record.data);
        if (record.type == Biff::Continue) texts_.goOn(record.data);
    }

    void takeCellFormat(std::string_view data) {
        ++cellFormats_;
        const std::uint32_t font = wordAt(data, 0);
        require(font != 4 && font < fonts_ + (font > 4 ? 1 : 0), "a look has a font");
        const std::uint32_t format = wordAt(data, 2);
        require(format == 0 || (format >= firstOwnFormat && format < firstOwnFormat + formats_),
                "a look has a number format");
    }

    static void takeText(std::string_view data, std::size_t longest) {
        const std::size_t length = wordAt(data, 0);
        require(length <= longest, "a text isn't too long for its record");
        require(data.size() == 3 + 2 * length && data[2] == 1, "a text has the length that it says");
        static_cast<void>(utf8Of(data.substr(3)));
    }

    Sheet_Cells takeSheet() {
        beginStream(0x0010);
        Sheet_Cells cells;
        while (records_.at(next_).type != Biff::Eof) {
            const Record& record = records_.at(next_++);
            if (record.type == Biff::Header || record.type == Biff::Footer)
                takeText(record.data, longestPageText);
            if (const auto value = valueOf(record)) {
                require(wordAt(record.data, 4) < cellFormats_, "a cell has a look");
                const std::pair place{wordAt(record.data, 0), wordAt(record.data, 2)};
                require(place.second < 256 && cells.emplace(place, *value).second,
                        "a cell is written once, inside the sheet");
            }
        }
        ++next_;
        return cells;
    }

    std::optional<Sheet_Value> valueOf(const Record& record) {
        if (record.type == Biff::Blank) return Sheet_Value();
        if (record.type == Biff::Number) return std::bit_cast<double>(numberAt(record.data, 6, 8));
        if (record.type != Biff::LabelSst) return std::nullopt;
        const std::uint64_t text = numberAt(record.data, 6, 4);
        require(text < texts_.texts.size(), "a cell's text is there");
        ++uses_;
        return texts_.texts[text];
    }

    const std::vector<Record>& records_;
    std::size_t next_ = 0;
    std::vector<std::uint32_t> sheetPlaces_;
    std::uint32_t fonts_ = 0;
    std::uint32_t formats_ = 0;
    std::uint32_t cellFormats_ = 0;
    Text_Table texts_;
    std::uint64_t uses_ = 0;
};

} // namespace

std::vector<Sheet_Cells> readBiff(std::string_view stream) {
    return Workbook_Reader(recordsOf(stream)).sheets();
}

} // namespace zorvane::fuzz
