#include "ctl/port_calls.h"
#include "template/native_files.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <iostream>

int main(int argc, char* argv[]) {
    using namespace zorvane;
    std::ios::sync_with_stdio(false);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    int ownName = 1; // the program's name only: the other arguments are none of Qt's business
    const QCoreApplication application(ownName, argv);
    const QString folder =
        QFileInfo(QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath()).path();

    Native_Files files;
    const Surroundings surroundings{files, std::cout, std::cerr,
                                    withoutEndSeparator(pathFromNative(folder.toStdString()))};
    std::vector<Call_Entry> calls = documentCalls();
    for (const Call_Entry& call : portCalls())
        calls.push_back(call);
    const int code = runProgram(calls, arguments, surroundings);
    std::cout.flush();
    return std::cout.good() ? code : static_cast<int>(Exit_Failed);
}
