// SPDX-License-Identifier: MIT
#include "bench/template/generated_template.h"

#include <string_view>

namespace zorvane::bench {

namespace {

/// Column 1 is a time, column 2 a list, columns 3 to 5 are unsigned, the others plain numbers.
constexpr std::int32_t listColumn = 2;

class Template_Text {
  public:
    explicit Template_Text(const Template_Size& size) : size_(size) {}

    [[nodiscard]] std::string text() {
        add("[HARDWARE]\nCONTROLLER=BENCH\n[CONFIGURATION_COLUMNS]\nNUMERIC_ROWS=YES\nCONFIGURATION_NC=3\n");
        for (std::int32_t c = 1; c <= 3; ++c)
            add("COL_" + number(c) + "_DESC=Text " + number(c) + "\nCOL_" + number(c) + "_WIDTH=1500\n");
        add("[CONFIGURATION_FIELDS]\n");
        for (std::int32_t f = 1; f <= size_.fields; ++f)
            add("FIELD_" + number(f) + "_DESC=Field " + number(f) + "\nFIELD_" + number(f) +
                "_RC=" + number(size_.rows) + "," + number(size_.columns) + "\n");
        add("[PORT_CONFIGURATION]\nHOLDINGREGISTERSBLOCK_1=10000-59999\nHOLDINGREQUESTBLOCK_1=ALWAYS\n");
        for (std::int32_t f = 1; f <= size_.fields; ++f)
            addField(f);
        return std::move(text_);
    }

  private:
    static std::string number(std::int32_t value) { return std::to_string(value); }

    [[nodiscard]] std::int32_t address(std::int32_t row, std::int32_t column) const {
        return 10000 + ((row - 1) * size_.columns + column) % 50000;
    }

    void add(std::string_view text) { text_ += text; }

    void addField(std::int32_t field) {
        const std::string head = "[FIELD_" + number(field);
        add(head + "_COLUMNS]\n");
        for (std::int32_t c = 1; c <= size_.columns; ++c)
            addColumn("COL_" + number(c));
        add(head + "_CONFIGURATION]\n");
        for (std::int32_t r = 1; r <= size_.rows; ++r)
            addRow(r);
        add(head + "_MESSAGES]\n");
        for (std::int32_t r = 1; r <= size_.rows; ++r)
            add("ADDRESS_" + number(address(r, listColumn)) + "=(0)Off,(1)On,(2)Automatic\n");
        add(head + "_DEFAULT]\n");
        for (std::int32_t r = 1; r <= size_.rows; ++r)
            addItems("ROW_", r, [](std::int32_t c) {
                return c == 1 ? std::string("1:30") : c == listColumn ? std::string("On") : number(c * 7);
            });
    }

    void addColumn(const std::string& key) {
        add(key + "_DESC=Set point\n" + key + "_WIDTH=1100\n" + key + "_ALIGNMENT=RIGHT\n" + key +
            "_TYPE=NUMERIC\n" + key + "_MODIFIABLE=YES\n" + key + "_MDBUSREQUEST=ALWAYS\n" + key +
            "_BITSNEGATIVEFORMAT=16\n");
    }

    void addRow(std::int32_t row) {
        addItems("ROWADDRESS_", row, [&](std::int32_t c) { return number(address(row, c)); });
        addItems("ROWADDRESSNUMERICMAXVALUE_", row, [](std::int32_t c) { return number(100 * c); });
        addItems("ROWADDRESSNUMERICMINVALUE_", row, [](std::int32_t c) { return number(-5 * c); });
        addItems("ROWADDRESSFORMAT_", row, [](std::int32_t c) {
            return std::string(c == 1 ? "TIME" : c > listColumn && c <= 5 ? "NUMERIC_UNSIGNED" : "");
        });
    }

    template <class Item> void addItems(const char* key, std::int32_t row, Item&& item) {
        add(key + number(row) + "=");
        for (std::int32_t c = 1; c <= size_.columns; ++c)
            add((c > 1 ? "," : "") + item(c));
        add("\n");
    }

    Template_Size size_;
    std::string text_;
};

} // namespace

std::string generatedTemplate(const Template_Size& size) { return Template_Text(size).text(); }

} // namespace zorvane::bench
