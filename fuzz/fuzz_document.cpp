// SPDX-License-Identifier: MIT
#include "fuzz/fuzz_document.h"

#include "fuzz/require.h"
#include "template/pro_escribe_archivo.h"

#include <algorithm>

namespace zorvane::fuzz {

namespace {

class Silent_Asker : public Asker {
  public:
    int Msgb_Show(const std::string&, int, const std::string&) override { return Msgb_Code_Ok; }
};

class Silent_Link : public Link_Notice {
  public:
    void SetTimings(std::int32_t, std::int32_t) override {}
    void SetHoldingRegisters(std::int16_t, double, bool, std::int16_t) override {}
    void SetAddressBase(std::int32_t) override {}
};

Silent_Asker asker;
Silent_Link silentLink;

class String_Writer : public Text_Writer {
  public:
    explicit String_Writer(std::string& text) : text_(text) {}
    void writeLine(std::string_view text) override { text_.append(text).append("\r\n"); }
    void close() override {}

  private:
    std::string& text_;
};

/// Fields may be as large as 32767 by 32767 cells, and a file has each of them.
constexpr std::int64_t mostCells = 10'000;

} // namespace

std::string_view firstLines(std::string_view text, std::int32_t count) {
    std::size_t end = 0;
    for (; count > 0 && end < text.size(); --count)
        end = std::min(text.find('\n', end), text.size() - 1) + 1;
    return text.substr(0, end);
}

std::unique_ptr<Text_Writer> One_File::create(const std::string&) {
    text.clear();
    return std::make_unique<String_Writer>(text);
}

Fuzz_Document::Fuzz_Document() {
    PRO_Limpia_Modelo(document_);
    PRO_Prepara_Lectura(document_);
}

Reading_Services Fuzz_Document::services() { return {files_, asker, silentLink, "/app"}; }

std::optional<std::int32_t> Fuzz_Document::readTemplate(std::string_view text) {
    files_.text = text;
    const bool ended = ignoringFailure([&] { PRO_Leer_INIFIle(document_, services(), "ABC.ZTP"); });
    return ended ? std::nullopt : std::optional(document_.Last_Line);
}

std::optional<bool> Fuzz_Document::readConfiguration(std::string_view text) {
    files_.text = text;
    bool ok = false;
    const bool ended = ignoringFailure([&] { PRO_Leer_DefaultFIle(document_, services(), "SITE7.ABC", ok); });
    return ended ? std::optional(ok) : std::nullopt;
}

bool Fuzz_Document::mayBeWritten() const {
    std::int64_t cells = std::int64_t{document_.Field_Count} * document_.Config_Column_Count;
    for (std::int32_t f = 1; f <= document_.Fields.upperBound(); ++f) {
        const Field_Rec& field = document_.Fields(f);
        if (field.Rows > 0 && field.Columns <= 0) return false;
        const std::int64_t rows = std::max<std::int64_t>(field.Rows, 0);
        const std::int64_t columns = std::max<std::int64_t>(field.Columns, 0);
        cells += rows * columns + rows + columns;
    }
    return cells <= mostCells;
}

std::optional<std::string> Fuzz_Document::written() {
    if (!mayBeWritten()) return std::nullopt;
    std::string result;
    PRO_Escribe_Archivo(document_, files_, "SITE7.ABC", result);
    return result.empty() ? std::optional(files_.text) : std::nullopt;
}

void Fuzz_Document::writeAndReadBack() {
    // Reading brings values into their usual form, such as an empty time to 0:00, so the second file counts.
    const auto first = written();
    if (!first) return;
    const auto taken = readConfiguration(*first);
    require(taken != false, "a document takes its own file");
    const auto second = taken ? written() : std::nullopt;
    if (!second) return;
    if (readConfiguration(*second) != true) return;
    const auto third = written();
    require(third.has_value(), "a document that was written is written again");
    requireSame(*third, *second, "a document that read its own file is written the same");
}

} // namespace zorvane::fuzz
