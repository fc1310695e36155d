// Carries out the updater's steps on command: one line in, one JSON object a line out.
//
//   check                      asks for an update
//   source [SOURCE]            sets where the manifest comes from; nothing for the vendor's host
//   download URL SHA256 [N]    downloads and verifies; the N-th report of progress stops it. What
//                              succeeds stays held
//   discard PATH               removes an installer that was downloaded
//   temp PATH                  where temporary files go from here on
//   trust FILE                 adds a certificate to the user's trusted roots
//   hold PATH                  opens a file so that nobody else can, until `release`
//   keep PATH                  opens a file so that it can be written but not moved, the same
//   handles                    how many handles the process holds
//   value HIVE KEY | NAME      a text of the registry, HIVE being HKLM, HKCU or HKU
//   set HIVE KEY | NAME | TEXT   writes one
//   forget HIVE KEY [| NAME]   deletes a key with all below it, or a value
//   parent PROCESS             the executable's name of the process that started this one
//   running NAME               how many processes run an executable of that name
#include <windows.h>
// These need the types of windows.h.
#include <tlhelp32.h>
#include <wincrypt.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/text.h"
#include "support/utf.h"
#include "support/win32_handles.h"
#include "updater/update_check.h"
#include "updater/update_download.h"

namespace {

using namespace ravelin;

FileHandle held;
std::map<std::string, HeldInstaller> downloads;

std::string rest(std::istringstream& words) {
    std::string text;
    std::getline(words >> std::ws, text);
    return text;
}

std::string check() {
    const UpdateCheckResult result = CheckForUpdate();
    const UpdateManifestInfo& m = result.manifest;
    return std::string(R"({"available":)") + (result.available ? "true" : "false") +
           R"(,"ownVersion":)" + jsonQuote(result.ownVersion) + R"(,"tier":)" + jsonQuote(m.tier) +
           R"(,"version":)" + jsonQuote(m.version) + R"(,"url":)" + jsonQuote(m.url) +
           R"(,"sha256":)" + jsonQuote(m.sha256) + R"(,"sig":)" + jsonQuote(m.sig) + "}";
}

std::string download(std::istringstream& words) {
    UpdateManifestInfo manifest;
    std::size_t stopAt = 0;
    words >> manifest.url >> manifest.sha256 >> stopAt;
    std::string progress;
    std::size_t reports = 0;
    HeldInstaller installer;
    const std::string message = DownloadAndVerify(
        manifest,
        [&](std::uint64_t done, std::uint64_t total) {
            progress += (progress.empty() ? "[" : ",[") + std::to_string(done) + ',' +
                        std::to_string(total) + ']';
            return ++reports != stopAt;
        },
        installer);
    const std::string path = narrow(installer.path());
    if (installer) downloads[path] = std::move(installer);
    return R"({"message":)" + jsonQuote(message) + R"(,"path":)" + jsonQuote(path) +
           R"(,"progress":[)" + progress + "]}";
}

std::string trust(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    const HCERTSTORE store = CertOpenSystemStoreW(0, L"Root");
    const BOOL added = CertAddEncodedCertificateToStore(
        store, X509_ASN_ENCODING, reinterpret_cast<const BYTE*>(bytes.data()),
        static_cast<DWORD>(bytes.size()), CERT_STORE_ADD_REPLACE_EXISTING, nullptr);
    CertCloseStore(store, 0);
    return std::string(R"({"trusted":)") + (added ? "true}" : "false}");
}

// What the text begins with and is cut off.
HKEY takeHive(std::istringstream& words) {
    std::string name;
    words >> name;
    if (name == "HKU") return HKEY_USERS;
    return name == "HKLM" ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

// What stands between bars.
std::vector<std::wstring> parts(std::istringstream& words) {
    const std::wstring bar = L" | ";
    std::wstring text = widen(rest(words));
    std::vector<std::wstring> all;
    for (std::size_t at = text.find(bar); at != std::wstring::npos; at = text.find(bar)) {
        all.push_back(text.substr(0, at));
        text.erase(0, at + bar.size());
    }
    all.push_back(text);
    return all;
}

std::string value(std::istringstream& words) {
    const HKEY hive = takeHive(words);
    const auto place = parts(words);
    wchar_t text[1024] = {};
    DWORD bytes = sizeof text;
    if (RegGetValueW(hive, place.at(0).c_str(), place.at(1).c_str(),
                     RRF_RT_REG_SZ | RRF_SUBKEY_WOW6464KEY, nullptr, text, &bytes) != ERROR_SUCCESS)
        return "{}";
    return R"({"value":)" + jsonQuote(narrow(text)) + "}";
}

void setValue(std::istringstream& words) {
    const HKEY hive = takeHive(words);
    const auto place = parts(words);
    RegistryKey key;
    RegCreateKeyExW(hive, place.at(0).c_str(), 0, nullptr, 0, KEY_WRITE | KEY_WOW64_64KEY, nullptr,
                    key.put(), nullptr);
    const std::wstring& text = place.at(2);
    RegSetValueExW(key.get(), place.at(1).c_str(), 0, REG_SZ,
                   reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

void forget(std::istringstream& words) {
    const HKEY hive = takeHive(words);
    const auto place = parts(words);
    RegistryKey key;
    RegOpenKeyExW(hive, place.at(0).c_str(), 0, KEY_ALL_ACCESS | KEY_WOW64_64KEY, key.put());
    if (!key) return;
    if (place.size() > 1) {
        RegDeleteValueW(key.get(), place.at(1).c_str());
    } else {
        RegDeleteTreeW(key.get(), nullptr);
        RegDeleteKeyExW(hive, place.at(0).c_str(), KEY_WOW64_64KEY, 0);
    }
}

struct Process {
    DWORD id = 0;
    DWORD parent = 0;
    std::string name;
};

std::vector<Process> processes() {
    const FileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    std::vector<Process> all;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more;
         more = Process32NextW(snapshot.get(), &entry))
        all.push_back({entry.th32ProcessID, entry.th32ParentProcessID, narrow(entry.szExeFile)});
    return all;
}

Process processOf(DWORD id) {
    for (const Process& process : processes())
        if (process.id == id) return process;
    return {};
}

std::string answer(const std::string& line) {
    std::istringstream words(line);
    std::string command;
    words >> command;
    if (command == "check") return check();
    if (command == "download") return download(words);
    if (command == "trust") return trust(rest(words));
    if (command == "source") {
        setUpdateManifestSource(rest(words));
        return "{}";
    }
    if (command == "discard") {
        auto node = downloads.extract(rest(words));
        if (node.empty()) return R"({"error":"no such download"})";
        discardInstaller(std::move(node.mapped()));
        return "{}";
    }
    if (command == "temp") {
        const std::wstring folder = widen(rest(words));
        SetEnvironmentVariableW(L"TMP", folder.c_str());
        SetEnvironmentVariableW(L"TEMP", folder.c_str());
        return "{}";
    }
    if (command == "hold") {
        held.reset(CreateFileW(widen(rest(words)).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr));
        return held ? "{}" : R"({"error":"cannot open"})";
    }
    if (command == "keep") {
        held.reset(CreateFileW(widen(rest(words)).c_str(), GENERIC_READ,
                               FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr));
        return held ? "{}" : R"({"error":"cannot open"})";
    }
    if (command == "release") {
        held.reset();
        return "{}";
    }
    if (command == "value") return value(words);
    if (command == "set") {
        setValue(words);
        return "{}";
    }
    if (command == "forget") {
        forget(words);
        return "{}";
    }
    if (command == "parent") {
        DWORD process = 0;
        words >> process;
        return R"({"parent":)" + jsonQuote(processOf(processOf(process).parent).name) + "}";
    }
    if (command == "running") {
        const std::string name = rest(words);
        const std::vector<Process> all = processes();
        const auto count = std::count_if(all.begin(), all.end(),
                                         [&](const Process& one) { return one.name == name; });
        return R"({"running":)" + std::to_string(count) + "}";
    }
    if (command == "handles") {
        DWORD count = 0;
        GetProcessHandleCount(GetCurrentProcess(), &count);
        return R"({"handles":)" + std::to_string(count) + "}";
    }
    return R"({"error":"unknown command"})";
}

}  // namespace

int main() {
    std::string line;
    while (std::getline(std::cin, line)) {
        if (line.ends_with('\r')) line.pop_back();
        std::puts(answer(line).c_str());
        std::fflush(stdout);
    }
    return 0;
}
