// SPDX-License-Identifier: MIT
#include "simulator/registers/document_registers.h"

#include "simulator/registers/identity_registers.h"
#include "simulator/registers/template_registers.h"
#include "template/pro_leer_archivo.h"
#include "template/services/asker.h"
#include "template/services/link_notice.h"
#include "template/services/native_files.h"
#include "values/run_time_failure.h"

#include <stdexcept>

namespace zorvane::simulator {

namespace {

using Warn = std::function<void(const std::string&)>;

/// Of all that a template tells the link, the controller needs the address base alone.
class Base_Notice : public Link_Notice {
  public:
    void SetTimings(std::int32_t, std::int32_t) override {}
    void SetHoldingRegisters(std::int16_t, double, bool, std::int16_t) override {}
    void SetAddressBase(std::int32_t base) override { base_ = base; }
    [[nodiscard]] std::int32_t base() const noexcept { return base_; }

  private:
    std::int32_t base_ = 0;
};

/// A missing file is found out before reading, so there is nothing to ask.
class Warning_Asker : public Asker {
  public:
    explicit Warning_Asker(const Warn& warn) : warn_(warn) {}
    int Msgb_Show(const std::string& prompt, int, const std::string&) override {
        warn_(prompt);
        return Msgb_Code_Ok;
    }

  private:
    const Warn& warn_;
};

void requireFile(Files& files, const std::string& path) {
    if (!files.exists(path)) throw std::runtime_error(pathToNative(path) + ": no such file");
}

template <class Reading> void warningOfFailure(const std::string& path, const Warn& warn, Reading reading) {
    try {
        reading();
    } catch (const Run_Time_Failure& failure) {
        warn(pathToNative(path) + ": read in part only: " + failure.description());
    }
}

} // namespace

Register_Map readRegisters(Files& files, const std::string& templateFile, const std::string& configuration,
                           const Warn& warn) {
    requireFile(files, templateFile);
    if (!configuration.empty()) requireFile(files, configuration);
    Declara_Zorvane document;
    Base_Notice link;
    Warning_Asker asker(warn);
    const Reading_Services services{files, asker, link, ""};
    PRO_Prepara_Lectura(document);
    // The ALWAYS blocks are counted at the end of reading, which fails for a template without any block.
    document.Holding_Blocks.redim(0);
    warningOfFailure(templateFile, warn, [&] { PRO_Leer_INIFIle(document, services, templateFile); });
    if (!configuration.empty()) {
        bool whole = true;
        warningOfFailure(configuration, warn,
                         [&] { PRO_Leer_DefaultFIle(document, services, configuration, whole); });
        if (!whole)
            warn(pathToNative(configuration) +
                 ": a row has more values than its field has columns; the rest is not read");
    }
    Register_Map map = registerMapOf(document, link.base(), warn);
    addIdentity(readIdentity(files.bytes(templateFile).value_or(std::string())), map);
    return map;
}

} // namespace zorvane::simulator
