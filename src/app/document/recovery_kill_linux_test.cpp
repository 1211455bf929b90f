// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/document/recover_command.h"
#include "app/document/recovery_keeper.h"
#include "app/testing/app_bench.h"
#include "recovery/native_recovery_folder.h"
#include "template/pro_escribe_archivo.h"
#include "template/services/native_files.h"
#include "template/testing/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

// A program that edits, saves, opens and closes at random is killed at a random moment, again and again. Each
// edit writes one number into every value of the document, so a torn file shows. Whatever the moment, the
// last state older than half a minute, or a newer one, has to be in the file or in a recovery copy, whole.
// The first change after an Open or a save has to be there within a second.

namespace zorvane::app {
namespace {

using doubles::App_Bench;

constexpr int rounds = 200;
constexpr int roundsOnDisk = 20; ///< waiting for the disk, the program is often killed inside a copy
constexpr std::int32_t rowsPerField = 50;

/// Two fields of many rows, so that writing takes a while.
std::string templateText() {
    std::string text = "[HARDWARE]\r\nCONTROLLER=abc\r\n[CONFIGURATION_COLUMNS]\r\nCONFIGURATION_NC=2\r\n"
                       "[CONFIGURATION_FIELDS]\r\n";
    const std::string rows = std::to_string(rowsPerField);
    for (const std::string field : {"1", "2"})
        text += "FIELD_" + field + "_DESC=F" + field + "\r\nFIELD_" + field + "_RC=" + rows + ",2\r\n";
    return text + "[CONFIGURATION_DEFAULT]\r\nFIELD_1=,F1\r\nFIELD_2=,F2\r\n";
}

/// The number that every value of the document holds; nothing when they differ or aren't there.
std::optional<std::int64_t> stateOf(const Declara_Zorvane& document) {
    if (document.Field_Count != 2) return std::nullopt;
    const std::string& first = document.Fields(1).Cells(1, 1).Value;
    if (first.empty()) return std::nullopt;
    for (const std::int32_t field : {1, 2})
        for (std::int32_t row = 1; row <= rowsPerField; ++row)
            for (const std::int32_t column : {1, 2})
                if (document.Fields(field).Cells(row, column).Value != first) return std::nullopt;
    return std::stoll(first);
}

void putState(Declara_Zorvane& document, std::int64_t state) {
    for (const std::int32_t field : {1, 2})
        for (std::int32_t row = 1; row <= rowsPerField; ++row)
            for (const std::int32_t column : {1, 2})
                document.Fields(field).Cells(row, column).Value = std::to_string(state);
}

/// The commands over a real folder.
struct Real_Bench : App_Bench {
    explicit Real_Bench(const std::string& home)
        : path(home + "/site.abc"), copies(home + "/recovery"),
          kept(
              copies, [this] { return time; }, std::to_string(getpid())),
          real{app.grids, mainForm, native, settings, widths, kept, state, home} {}

    Native_Files native;
    std::string path;
    Native_Recovery_Folder copies;
    Recovery kept;
    App_Context real;
};

/// What the program tells its killer: the time of its clock, and the state that the document was in then.
struct Report {
    std::int64_t now;
    std::int64_t state;
    bool first; ///< the state is the first change after an Open or a save
};

/// The program that gets killed. Its clock is its own; nothing in it waits.
class Victim {
  public:
    Victim(const std::string& home, int pipe, unsigned seed)
        : bench_(home), pipe_(pipe), random_(seed), calm_(seed % 2 == 0) {
        bench_.mainForm.base.duringPause = [this](std::int32_t ms) { pass(ms); };
    }

    [[noreturn]] void run() {
        openFile(bench_.real, bench_.path, false);
        for (;;)
            act();
    }

  private:
    void act() {
        switch (random_() % (calm_ ? 120 : 12)) {
        case 0:
        case 1:
            return save();
        case 2:
            return saveAs();
        case 3:
            return close();
        case 4:
            return open();
        default:
            edit();
            return pass(static_cast<std::int64_t>(random_() % 9000));
        }
    }

    /// Reported before it counts as done, so that the killer never expects less than there was.
    void edit() {
        if (!bench_.form.Document_Open || bench_.state.modelEmptied) return open();
        putState(bench_.document, ++last_);
        bench_.edit(1, std::to_string(last_));
        report(std::exchange(settled_, false));
    }

    /// Time goes by, and the window's timer fires in it.
    void pass(std::int64_t ms) {
        for (const std::int64_t end = now_ + ms; now_ < end;) {
            now_ = std::min(end, nextTick_);
            if (now_ < nextTick_) break;
            TMR_Copia_Timer(bench_.real, now_);
            nextTick_ += recoveryLookMs;
        }
        report();
    }

    void save() {
        if (!bench_.mainForm.menuEnabled(Menu_Entry::MNU_Save)) return;
        MNU_Save_Click(bench_.real);
        settled_ = !bench_.document.Save_Failed;
    }

    void saveAs() {
        if (!bench_.form.Document_Open) return;
        // A document read from a file that a failed save left torn is torn itself, and so would be its copy.
        if (!bench_.state.modelEmptied && !stateOf(bench_.document)) return edit();
        bench_.choose(bench_.path);
        MNU_Saveas_Click(bench_.real);
    }

    void answerAnyhow() {
        static constexpr int answers[] = {Msgb_Code_Yes, Msgb_Code_No, Msgb_Code_Cancel};
        bench_.mainForm.base.answers = {answers[random_() % 3]};
        if (random_() % 2 == 0) bench_.choose(bench_.path); // for a Save As that may come of it
    }

    void close() {
        answerAnyhow();
        MNU_Close_Click(bench_.real);
        bench_.mainForm.scriptedDialog.answers.clear();
    }

    void open() {
        answerAnyhow();
        openFile(bench_.real, bench_.path, false);
        settled_ = bench_.form.Document_Open && !bench_.state.modelEmptied;
        bench_.mainForm.scriptedDialog.answers.clear();
        bench_.journal.clear();
    }

    void report(bool first = false) const {
        const Report report{now_, last_, first};
        if (::write(pipe_, &report, sizeof report) != static_cast<ssize_t>(sizeof report)) _exit(3);
    }

    Real_Bench bench_;
    int pipe_;
    std::mt19937 random_;
    bool calm_; ///< hardly ever does anything but edit, so that only the timer keeps what it does
    std::int64_t now_ = 0;
    std::int64_t nextTick_ = recoveryLookMs;
    std::int64_t last_ = 1;
    bool settled_ = true; ///< the document is as its file says
};

/// The state in the file; 0 when it is torn.
std::int64_t fileState(const std::string& home) {
    Real_Bench bench(home);
    openFile(bench.real, bench.path, false);
    return stateOf(bench.document).value_or(0);
}

/// The newest state in the copies, each of which has to be whole.
std::int64_t newestCopy(const std::string& home) {
    std::int64_t newest = 0;
    Real_Bench bench(home);
    for (const Recovery_Entry& entry : recoveryEntries(bench.real)) {
        bench.form.Dirty = false;
        openRecoveryCopy(bench.real, entry);
        const std::optional<std::int64_t> state = stateOf(bench.document);
        EXPECT_TRUE(state) << "a torn copy: " << entry.file;
        newest = std::max(newest, state.value_or(0));
        bench.kept.leave();
    }
    return newest;
}

/// Reads reports until so many came, lets a moment pass, and kills. All reports, also those of that moment.
std::vector<Report> killAfter(pid_t victim, int pipe, std::size_t count, useconds_t moment) {
    std::vector<Report> reports;
    Report report{};
    while (reports.size() < count &&
           ::read(pipe, &report, sizeof report) == static_cast<ssize_t>(sizeof report))
        reports.push_back(report);
    ::usleep(moment);
    ::kill(victim, SIGKILL);
    int status = 0;
    ::waitpid(victim, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "the program ended by itself";
    while (::read(pipe, &report, sizeof report) == static_cast<ssize_t>(sizeof report))
        reports.push_back(report);
    return reports;
}

/// The state that had to be safe at the last report.
std::int64_t safeState(const std::vector<Report>& reports) {
    std::int64_t state = 1;
    for (const Report& report : reports)
        if (report.now <= reports.back().now - (report.first ? firstCopyMs : recoveryIntervalMs))
            state = std::max(state, report.state);
    return state;
}

/// A killed program leaves what the system has of its files, on a disk or in memory; there it is quicker.
std::filesystem::path parentOf(int round) {
    const std::filesystem::path memory = "/dev/shm";
    const bool quick = round >= roundsOnDisk && ::access(memory.c_str(), W_OK) == 0;
    return quick ? memory : std::filesystem::temp_directory_path();
}

void prepare(const std::string& home) {
    Native_Files files;
    const auto ztp = files.create(home + "/ABC.ZTP");
    ztp->writeLine(templateText());
    ztp->close();
    Declara_Zorvane document;
    Real_Bench bench(home);
    files.create(bench.path)->close();
    openFile(bench.real, bench.path, false);
    putState(bench.document, 1);
    std::string result;
    PRO_Escribe_Archivo(bench.document, files, bench.path, result);
    ASSERT_EQ(result, "");
}

/// Starts the program, kills it, and gives what it had reported.
std::vector<Report> playAndKill(const std::string& home, std::mt19937& random) {
    int pipe[2];
    if (::pipe(pipe) != 0) throw std::runtime_error("no pipe");
    const auto seed = static_cast<unsigned>(random());
    const std::size_t count = 5 + random() % 25;
    const auto moment = static_cast<useconds_t>(random() % 4000);
    const pid_t victim = ::fork();
    if (victim < 0) throw std::runtime_error("no process");
    if (victim == 0) {
        ::close(pipe[0]);
        Victim(home, pipe[1], seed).run();
    }
    ::close(pipe[1]);
    std::vector<Report> reports = killAfter(victim, pipe[0], count, moment);
    ::close(pipe[0]);
    return reports;
}

int unfinishedCopies(const std::string& home) {
    int count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(home))
        count += entry.path().extension() == ".unfinished" ? 1 : 0;
    return count;
}

/// Whether the last of the first changes had to be safe and was younger than half a minute.
bool endsInAFirstChange(const std::vector<Report>& reports) {
    return std::any_of(reports.begin(), reports.end(), [&](const Report& report) {
        const std::int64_t age = reports.back().now - report.now;
        return report.first && age >= firstCopyMs && age < recoveryIntervalMs;
    });
}

TEST(RecoveryKill, AtAnyMomentTheLastStateOlderThanHalfAMinuteIsSafe) {
    std::mt19937 random(20261121);
    int longRounds = 0;
    int firstChanges = 0;
    int killedInCopy = 0;
    int tornFiles = 0;
    for (int round = 0; round < rounds; ++round) {
        const doubles::Temporary_Folder home(parentOf(round));
        prepare(home.path());
        const std::vector<Report> reports = playAndKill(home.path(), random);
        killedInCopy += unfinishedCopies(home.path());
        const std::int64_t safe = safeState(reports);
        longRounds += safe > 1 ? 1 : 0;
        firstChanges += endsInAFirstChange(reports) ? 1 : 0;
        const std::int64_t inFile = fileState(home.path());
        tornFiles += inFile == 0 ? 1 : 0;
        EXPECT_GE(std::max(inFile, newestCopy(home.path())), safe)
            << "round " << round << " of " << reports.size() << " reports";
    }
    RecordProperty("rounds_longer_than_half_a_minute", longRounds);
    RecordProperty("rounds_that_end_in_a_first_change", firstChanges);
    RecordProperty("rounds_killed_in_the_middle_of_a_copy", killedInCopy);
    RecordProperty("rounds_that_left_a_torn_file", tornFiles);
    EXPECT_GT(longRounds, rounds / 2) << "the test has to reach the case that it is about";
    EXPECT_GT(firstChanges, rounds / 10);
    EXPECT_GT(killedInCopy + tornFiles, 0);
}

} // namespace
} // namespace zorvane::app
