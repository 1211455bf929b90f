// SPDX-License-Identifier: MIT
#include "bench/link/upload_time.h"

#include "bench/link/bench_form.h"
#include "bench/link/simulator_process.h"
#include "bench/link/table.h"
#include "bench/link/wire.h"
#include "comm/modbus_control/qt/qt_link.h"
#include "comm/transfer/session.h"
#include "comm/transfer/upload.h"
#include "template/pro_leer_archivo.h"
#include "template/services/native_files.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <stdexcept>

namespace zorvane::bench {

namespace {

constexpr Wire wire{9600, true};

class Silent_Asker : public Asker {
  public:
    int Msgb_Show(const std::string& prompt, int, const std::string&) override {
        throw std::runtime_error(prompt);
    }
};

/// The sum of the wire limits of the exchanges of one pass over all blocks, and of the pause that lies before
/// each request beside the line's silence.
double limitMs(const Declara_Zorvane& document, double pauseMs, int& exchanges) {
    double sum = 0;
    exchanges = 0;
    for (std::int32_t i = 1; i <= document.Holding_Blocks.upperBound(); ++i) {
        const Holding_Block_Rec& block = document.Holding_Blocks(i);
        for (std::int32_t first = block.First_Address; first <= block.Last_Address; first += largestRead) {
            const std::int32_t count = std::min(largestRead, block.Last_Address - first + 1);
            const Rtu_Request request = readRequest(1, 0, static_cast<std::uint16_t>(count));
            sum += wireLimitMs(wire, request) + pauseMs;
            ++exchanges;
        }
    }
    return sum;
}

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point begin) {
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

/// One upload: from the command until the form is free again, of that the command itself, which opens the
/// port, and the last tick, which fills the cells and opens the port again for polling.
struct Upload_Time {
    double wholeMs = 0;
    double openingMs = 0;
    double finishingMs = 0;
};

/// A document on a link to a simulated controller, as the window holds it.
class Session {
  public:
    Session(const std::string& templateFile, const std::string& device)
        : link_(settingsFor(device), asker_),
          mainForm_(readTemplate(templateFile), [this] { tick(); }), comm_{document_, form_, link_.link(),
                                                                           mainForm_} {
        form_.Document_Open = true;
        PRO_Registra_Bloques(comm_);
    }

    Upload_Time upload() {
        const auto begin = Clock::now();
        MNU_Upload_Click(comm_);
        Upload_Time time;
        time.openingMs = millisecondsSince(begin);
        while (form_.Upload_Active)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        time.finishingMs = lastTickMs_;
        time.wholeMs = millisecondsSince(begin);
        const bool whole = form_.Transfer_Errors.empty() && form_.Last_Upload.finished();
        MNU_Disconnect_Click(comm_);
        if (!whole) throw std::runtime_error("an upload did not finish without a failed exchange");
        return time;
    }

    void setPause(std::int32_t milliseconds) { link_.link().SetTimings(milliseconds, document_.Comm_Out_Ms); }
    [[nodiscard]] const Declara_Zorvane& document() const { return document_; }

  private:
    static Port_Settings settingsFor(const std::string& device) {
        Port_Settings settings;
        settings.port = device;
        settings.line = wire.line();
        return settings;
    }

    /// The number of fields.
    std::int32_t readTemplate(const std::string& templateFile) {
        Native_Files files;
        PRO_Prepara_Lectura(document_);
        PRO_Leer_INIFIle(document_, {files, asker_, link_.link(), ""}, pathFromNative(templateFile));
        return document_.Field_Count;
    }

    void tick() {
        const auto begin = Clock::now();
        TMR_Actualiza_valores_Timer(comm_);
        lastTickMs_ = millisecondsSince(begin);
    }

    Silent_Asker asker_;
    Declara_Zorvane document_;
    Main_Form_State form_;
    Qt_Link link_;
    Bench_Form mainForm_;
    Comm_Context comm_;
    double lastTickMs_ = 0;
};

std::vector<std::string> measure(Session& session, const std::string& model, std::int32_t pauseMs,
                                 int uploads) {
    session.setPause(pauseMs);
    int exchanges = 0;
    const double limit = limitMs(session.document(), pauseMs, exchanges);
    std::vector<double> whole;
    std::vector<double> opening;
    std::vector<double> finishing;
    for (int i = 0; i < uploads; ++i) {
        const Upload_Time time = session.upload();
        whole.push_back(time.wholeMs);
        opening.push_back(time.openingMs);
        finishing.push_back(time.finishingMs);
    }
    return {model,
            std::to_string(pauseMs),
            std::to_string(exchanges),
            fixed(limit, 1),
            fixed(median(whole), 1),
            fixed(median(whole) / limit, 3),
            fixed(median(opening), 1),
            fixed(median(finishing), 1)};
}

std::vector<std::filesystem::path> templates(const std::string& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string extension = entry.path().extension().string();
        if (extension == ".ZTP" || extension == ".ztp") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

void measureUploads(const Bench_Setup& setup) {
    std::vector<std::vector<std::string>> rows{
        {"model", "pause ms", "exchanges", "limit ms", "upload ms", "ratio", "opening ms", "finishing ms"}};
    for (const auto& file : templates(setup.models)) {
        std::cerr << "uploading " << file.stem().string() << " ...\n";
        const Simulator_Process controller(setup.simulator, setup.folder + "/line", wire,
                                           {"--template", QString::fromStdString(file.string())});
        Session session(file.string(), controller.device());
        const std::int32_t ownPause = session.document().Comm_Request_Ms;
        rows.push_back(measure(session, file.stem().string(), 0, setup.uploads));
        rows.push_back(measure(session, file.stem().string(), ownPause, setup.uploads));
    }
    std::cout << "Median time of a whole upload at 9600 baud, 11 bits a character, " << setup.uploads
              << " of each\n";
    printTable(std::cout, rows);
}

} // namespace zorvane::bench
