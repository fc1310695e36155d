#include <algorithm>
#include <array>
#include <mutex>
#include <utility>

#include "app/child_panel_table.h"
#include "app/child_panels.h"
#include "app/panel_job_win32.h"
#include "input/engine_state.h"
#include "persistence/profiles.h"
#include "support/utf.h"

namespace ravelin {
namespace {

// Empty when it does not fit.
std::wstring ownExecutable() {
    std::array<wchar_t, MAX_PATH> path{};
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
    return length < MAX_PATH ? std::wstring(path.data(), length) : std::wstring();
}

// Held until this process ends.
const KernelHandle& panelJob() {
    static const KernelHandle job = makePanelJob();
    return job;
}

ProcessHandle startOwnExecutable(const std::string& arguments) {
    const std::wstring program = ownExecutable();
    if (program.empty()) return {};
    return startInJob(panelJob(), program, L'"' + program + L"\" " + widen(arguments));
}

bool hasEnded(const ProcessHandle& process) {
    DWORD exitCode = STILL_ACTIVE;
    return GetExitCodeProcess(process.get(), &exitCode) != 0 && exitCode != STILL_ACTIVE;
}

}  // namespace

ChildPanelTable& childPanelTable() {
    static ChildPanelTable table;
    return table;
}

std::vector<std::string> collectEndedPanels() {
    std::vector<std::string> ended;
    const std::lock_guard lock(profileMutex);
    std::erase_if(childPanelTable(), [&](const auto& entry) {
        if (!hasEnded(entry.second)) return false;
        ended.push_back(entry.first);
        return true;
    });
    if (!ended.empty()) engine.panelHover.exchange(false);
    return ended;
}

bool anyPanelEnded() {
    const std::lock_guard lock(profileMutex);
    return std::ranges::any_of(childPanelTable(),
                               [](const auto& entry) { return hasEnded(entry.second); });
}

bool anyPanelOut() {
    const std::lock_guard lock(profileMutex);
    return !childPanelTable().empty();
}

bool isPanelOut(std::string_view panelId) {
    const std::lock_guard lock(profileMutex);
    return childPanelTable().contains(panelId);
}

bool startChildPanel(const std::string& panelId, const std::string& arguments) {
    ProcessHandle process = startOwnExecutable(arguments);
    if (!process) return false;
    const std::lock_guard lock(profileMutex);
    childPanelTable().insert_or_assign(panelId, std::move(process));
    return true;
}

void endAllChildPanels() {
    const std::lock_guard lock(profileMutex);
    for (const auto& [id, process] : childPanelTable())
        TerminateProcess(process.get(), 0);
    childPanelTable().clear();
}

}  // namespace ravelin
