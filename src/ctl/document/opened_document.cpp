// SPDX-License-Identifier: MIT
#include "ctl/document/opened_document.h"

#include "template/pro_leer_archivo.h"
#include "template/services/file_names.h"

namespace zorvane::ctl {

namespace {

/// Keeps every message; each counts as answered with Ok.
class Message_Keeper : public Asker {
  public:
    explicit Message_Keeper(std::vector<Message_Note>& messages) : messages_(messages) {}
    int Msgb_Show(const std::string& prompt, int style, const std::string& title) override {
        messages_.push_back({style, title, prompt});
        return Msgb_Code_Ok;
    }

  private:
    std::vector<Message_Note>& messages_;
};

/// Notes the size of the register image, and hands everything on to the link, if there is one.
class Notice_Keeper : public Link_Notice {
  public:
    Notice_Keeper(std::optional<double>& holdingRegisters, Link_Notice* link)
        : holdingRegisters_(holdingRegisters), link_(link) {}

    void SetTimings(std::int32_t requestMs, std::int32_t outMs) override {
        if (link_ != nullptr) link_->SetTimings(requestMs, outMs);
    }
    void SetHoldingRegisters(std::int16_t first, double count, bool flag, std::int16_t last) override {
        holdingRegisters_ = count;
        if (link_ != nullptr) link_->SetHoldingRegisters(first, count, flag, last);
    }
    void SetAddressBase(std::int32_t base) override {
        if (link_ != nullptr) link_->SetAddressBase(base);
    }

  private:
    std::optional<double>& holdingRegisters_;
    Link_Notice* link_;
};

void noteReading(Reading_Note& note, const Declara_Zorvane& document) {
    note.loaded = !document.Load_Failed;
    note.line = document.Last_Line;
}

} // namespace

bool Reading_Note::toTheEnd() const {
    const bool afterTheEnd = failure && line == 0 && failure->number == static_cast<int>(Failure::Subscript);
    return ok && loaded && (!failure || afterTheEnd);
}

Opened_Document openDocument(const Document_Source& opening) {
    Opened_Document opened;
    Declara_Zorvane& document = opened.document;
    Message_Keeper asker(opened.messages);
    Notice_Keeper link(opened.Holding_Registers, opening.link);
    const Reading_Services services{opening.files, asker, link, opening.applicationFolder};
    PRO_Limpia_Modelo(document);
    PRO_Prepara_Lectura(document);

    opened.ztp.path = opening.templatePath;
    opened.ztp.failure = failureOf([&] { PRO_Leer_INIFIle(document, services, opening.templatePath); });
    noteReading(opened.ztp, document);
    if (!opening.configurationPath) return opened;

    takeName(document, *opening.configurationPath);
    Reading_Note& configuration = opened.configuration.emplace();
    configuration.path = *opening.configurationPath;
    configuration.failure =
        failureOf([&] { PRO_Leer_DefaultFIle(document, services, configuration.path, configuration.ok); });
    noteReading(configuration, document);
    return opened;
}

} // namespace zorvane::ctl
