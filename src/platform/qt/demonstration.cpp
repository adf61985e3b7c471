#include "platform/qt/demonstration.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#ifdef __linux__
#include <unistd.h>
#endif

#include "platform/qt/event_hook.h"
#include "platform/qt/later.h"
#include "platform/qt/shell.h"
#include "platform/qt/text.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

constexpr int kSettleMilliseconds = 150;  ///< from the last change to the picture

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

using Clock = std::chrono::steady_clock;

/// When the program's own code began to run.
const Clock::time_point loaded = Clock::now();

double MillisecondsSinceLoading() {
    return std::chrono::duration<double, std::milli>(Clock::now() - loaded).count();
}

#ifdef __linux__
/// Milliseconds that the process lives, counted by the system in ticks of mostly 10 ms; it
/// includes the loading of the libraries.
double MillisecondsSinceStart() {
    std::ifstream statFile("/proc/self/stat");
    std::ifstream uptimeFile("/proc/uptime");
    std::string stat;
    double uptime = 0;
    if (!std::getline(statFile, stat) || !(uptimeFile >> uptime)) return MillisecondsSinceLoading();
    std::istringstream fields(stat.substr(stat.rfind(')') + 1));
    std::string field;
    constexpr int kStartTimeField = 20;  // counted from the one behind the program's name
    for (int i = 0; i < kStartTimeField; ++i) fields >> field;
    const double ticks = std::strtod(field.c_str(), nullptr);
    return (uptime - ticks / static_cast<double>(sysconf(_SC_CLK_TCK))) * 1000.0;
}
#else
double MillisecondsSinceStart() {
    return MillisecondsSinceLoading();
}
#endif

void ShowAskedFolder() {
    const std::string folder = Variable("BRINDLEMOOR_FOLDER");
    if (folder.empty() || PrincipalControl("File1").ListIndex >= 0) return;
    UserAction([&folder] { ShowPcFolder(folder); });
}

void ClickAskedFile() {
    const std::string name = Variable("BRINDLEMOOR_OPEN");
    if (name.empty()) return;
    Control& files = PrincipalControl("File1");
    const auto found = std::find(files.Items.begin(), files.Items.end(), name);
    if (found == files.Items.end()) {
        std::fprintf(stderr, "BRINDLEMOOR_OPEN: %s is not in the list\n", name.c_str());
        return;
    }
    const int index = static_cast<int>(found - files.Items.begin());
    UserAction([&files, index] { ClickListEntry(files, index); });
}

void SaveAskedPicture(QMainWindow* window) {
    const std::string path = Variable("BRINDLEMOOR_SCREENSHOT");
    if (path.empty()) return;
    RunLater(window, kSettleMilliseconds, [window, path] {
        const bool saved = window->grab().save(ToText(path), "PNG");
        if (!saved) std::fprintf(stderr, "BRINDLEMOOR_SCREENSHOT: cannot write %s\n", path.c_str());
        QuitProgram(saved ? 0 : 1);
    });
}

void BeginDemonstration(QMainWindow* window) {
    if (!Variable("BRINDLEMOOR_TIMING").empty()) {
        std::fprintf(stderr, "first paint after %.0f ms\n", MillisecondsSinceStart());
    }
    ShowAskedFolder();
    ClickAskedFile();
    SaveAskedPicture(window);
}

}  // namespace

void PrepareDemonstration(MainWindow& window) {
    QMainWindow* widget = window.Widget.get();
    HookEvents(widget->centralWidget(), [widget, painted = false](QEvent* event) mutable {
        if (painted || event->type() != QEvent::Paint) return false;
        painted = true;
        RunLater(widget, 0, [widget] { BeginDemonstration(widget); });
        return false;
    });
}

}  // namespace brindlemoor
