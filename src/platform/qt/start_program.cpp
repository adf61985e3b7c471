#include "platform/qt/start_program.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

#include "platform/qt/text.h"

#ifndef Q_OS_WIN
#include <spawn.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#ifndef _GNU_SOURCE  // which declares it
extern char** environ;
#endif
#endif

namespace brindlemoor {

#ifdef Q_OS_WIN

bool IsProgramInstalled(const std::string& /*program*/) {
    return true;
}

bool StartProgramDetached(const std::string& program, const std::vector<std::string>& arguments) {
    QStringList list;
    for (const std::string& argument : arguments) list << ToText(argument);
    return QProcess::startDetached(ToText(program), list);
}

#else

namespace {

/// The programs started that were still running when last looked at.
std::vector<pid_t> runningPrograms;

/// The system keeps a program that has ended until somebody asks how it ended.
void ForgetEndedPrograms() {
    std::erase_if(runningPrograms,
                  [](pid_t program) { return waitpid(program, nullptr, WNOHANG) != 0; });
}

/// A group of its own, so that a terminal's Ctrl+C for us does not end it, and the usual signals.
void SetAttributes(posix_spawnattr_t& attributes) {
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setflags(
        &attributes,
        static_cast<short>(POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
}

}  // namespace

bool IsProgramInstalled(const std::string& program) {
    if (program.find('/') == std::string::npos) {
        return !QStandardPaths::findExecutable(ToText(program)).isEmpty();
    }
    std::error_code error;
    return std::filesystem::is_regular_file(program, error) && access(program.c_str(), X_OK) == 0;
}

// Not by QProcess, which would write the arguments anew: a path need not be characters of any kind.
bool StartProgramDetached(const std::string& program, const std::vector<std::string>& arguments) {
    ForgetEndedPrograms();
    std::vector<std::string> words = arguments;
    words.insert(words.begin(), program);
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    posix_spawnattr_t attributes;
    if (posix_spawnattr_init(&attributes) != 0) return false;
    SetAttributes(attributes);
    pid_t started = 0;
    const int failed =
        posix_spawnp(&started, program.c_str(), nullptr, &attributes, pointers.data(), environ);
    posix_spawnattr_destroy(&attributes);
    if (failed == 0) runningPrograms.push_back(started);
    return failed == 0;
}

#endif

}  // namespace brindlemoor
