// SPDX-License-Identifier: MIT
// How long a template takes to read, beside a plain reader of the same kind of file and beside taking its
// lines alone. The argument is the number of rows of each of its 100 fields; a row has 20 columns.

#include "bench/template/generated_template.h"
#include "template/line_scanner.h"
#include "template/pro_leer_archivo.h"

#include <benchmark/benchmark.h>

#include <ini.h>
#include <memory>
#include <string>

namespace zorvane::bench {
namespace {

class One_File : public Files {
  public:
    explicit One_File(const std::string& text) : text_(text) {}
    [[nodiscard]] bool exists(const std::string&) override { return true; }
    [[nodiscard]] std::string read(const std::string&) override { return text_; }
    [[nodiscard]] std::unique_ptr<Text_Writer> create(const std::string&) override { return nullptr; }
    [[nodiscard]] std::vector<std::string> list(const std::string&) override { return {}; }

  private:
    const std::string& text_;
};

class No_Asker : public Asker {
  public:
    int Msgb_Show(const std::string&, int, const std::string&) override { return Msgb_Code_Ok; }
};

class No_Link : public Link_Notice {
  public:
    void SetTimings(std::int32_t, std::int32_t) override {}
    void SetHoldingRegisters(std::int16_t, double, bool, std::int16_t) override {}
    void SetAddressBase(std::int32_t) override {}
};

std::string textFor(const benchmark::State& state) {
    return generatedTemplate({.rows = static_cast<std::int32_t>(state.range(0))});
}

void tellSize(benchmark::State& state, const std::string& text) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
    state.counters["MB"] = static_cast<double>(text.size()) / 1e6;
}

void readTemplate(benchmark::State& state) {
    const std::string text = textFor(state);
    One_File files(text);
    No_Asker asker;
    No_Link link;
    for (auto iteration : state) {
        state.PauseTiming();
        auto document = std::make_unique<Declara_Zorvane>();
        PRO_Limpia_Modelo(*document);
        PRO_Prepara_Lectura(*document);
        state.ResumeTiming();
        PRO_Leer_INIFIle(*document, {files, asker, link, ""}, "BENCH.ZTP");
        state.PauseTiming();
        if (document->Fields(100).Cells(1, 2).Value != "1") state.SkipWithError("the template wasn't read");
        document.reset();
        state.ResumeTiming();
    }
    tellSize(state, text);
}

int noHandler(void*, const char*, const char*, const char*) { return 1; }

void readWithInih(benchmark::State& state) {
    const std::string text = textFor(state);
    for (auto iteration : state)
        if (ini_parse_string(text.c_str(), noHandler, nullptr) != 0) state.SkipWithError("a line was cut");
    tellSize(state, text);
}

void takeLines(benchmark::State& state) {
    const std::string text = textFor(state);
    for (auto iteration : state) {
        std::string_view rest = text;
        while (const auto line = takeLine(rest))
            benchmark::DoNotOptimize(line->data());
    }
    tellSize(state, text);
}

void sizes(benchmark::internal::Benchmark* subject) {
    subject->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
}

BENCHMARK(readTemplate)->Apply(sizes);
BENCHMARK(readWithInih)->Apply(sizes);
BENCHMARK(takeLines)->Apply(sizes);

} // namespace
} // namespace zorvane::bench
