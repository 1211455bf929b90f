// SPDX-License-Identifier: MIT
#include "ctl/testing/ctl_bench.h"

#include "ctl/calls/document_calls.h"
#include "ctl/program.h"
#include "recovery/native_recovery_folder.h"
#include "recovery/recovery.h"
#include "template/services/native_files.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

namespace zorvane::doubles {

namespace fs = std::filesystem;

Ctl_Bench::Ctl_Bench() {
    std::string name = fs::temp_directory_path() / "zorvane-ctl-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr)
        throw std::system_error(errno, std::generic_category(), "a folder for the test");
    folder_ = name;
    ::setenv("XDG_DATA_HOME", recovery().c_str(), 1); // of programs that the test starts
}

Ctl_Bench::~Ctl_Bench() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
    fs::remove_all(recovery(), ignored);
}

std::string Ctl_Bench::file(const std::string& name, const std::string& bytes) {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return path(name);
}

std::string Ctl_Bench::bytes(const std::string& name) const {
    std::ifstream in(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool Ctl_Bench::exists(const std::string& name) const { return fs::exists(folder_ / name); }

std::vector<std::string> Ctl_Bench::names() const {
    std::vector<std::string> found;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_))
        found.push_back(entry.path().filename().string());
    std::sort(found.begin(), found.end());
    return found;
}

Ctl_Run Ctl_Bench::run(const std::vector<std::string>& arguments) const {
    Native_Files files;
    std::ostringstream out;
    std::ostringstream err;
    Native_Recovery_Folder unsaved(recovery());
    Native_Recovery_Folder saved(filesFolder(recovery()));
    Recovery copies(
        unsaved, [this] { return time; }, "7", &saved);
    const int code =
        ctl::runProgram(ctl::documentCalls(), arguments, {files, out, err, "/opt/zorvane", false, &copies});
    return {code, out.str(), err.str()};
}

std::string lines(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts)
        joined += text + "\r\n";
    return joined;
}

} // namespace zorvane::doubles
