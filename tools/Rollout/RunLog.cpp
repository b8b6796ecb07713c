#include "tools/Rollout/RunLog.h"

#include <optional>
#include <utility>

#include "CommonLib/TextUtilities.h"

namespace rollout {
namespace {

constexpr std::wstring_view lineEnd = L"\r\n";
constexpr std::size_t levelWidth = 7;
constexpr std::size_t separatorWidth = 2;
constexpr std::wstring_view timeForm = L"0000/00/00-00:00:00";
constexpr std::wstring_view ordinaryStart = L"Exception in CKestruneApp::InitInstance error code = 2";
// In characters. No record of the wizard comes near it.
constexpr std::size_t longestLine = 1u << 22;
constexpr std::size_t longestToWatch = 400;

bool IsTime(std::wstring_view text) {
    if (text.size() != timeForm.size()) return false;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (timeForm[place] == L'0' ? !IsDigit(text[place]) : text[place] != timeForm[place]) return false;
    }
    return true;
}

std::wstring_view WithoutPadding(std::wstring_view text) {
    return text.substr(0, text.find_last_not_of(L' ') + 1);
}

// The record that a line begins. Its level is padded to a width, and a longer one pushes the rest on.
std::optional<RunRecord> ReadHead(std::wstring_view line) {
    const std::size_t levelEnd = line.find(L"  ", levelWidth);
    if (levelEnd == std::wstring_view::npos) return std::nullopt;
    const std::wstring_view rest = line.substr(levelEnd + separatorWidth);
    if (!IsTime(rest.substr(0, timeForm.size()))) return std::nullopt;
    const std::size_t message = timeForm.size() + separatorWidth;
    return RunRecord{
        .level = std::wstring(WithoutPadding(line.substr(0, levelEnd))),
        .time = std::wstring(rest.substr(0, timeForm.size())),
        .message = std::wstring(rest.size() < message ? std::wstring_view() : rest.substr(message))};
}

}  // namespace

std::vector<RunRecord> RecordReader::Take(std::string_view bytes) {
    undecoded.append(bytes);
    for (std::size_t place = 0; place + 1 < undecoded.size(); place += 2) {
        unfinished += static_cast<wchar_t>(static_cast<unsigned char>(undecoded[place]) |
                                           static_cast<unsigned char>(undecoded[place + 1]) << 8);
    }
    undecoded.erase(0, undecoded.size() / 2 * 2);

    std::vector<RunRecord> records;
    std::size_t start = 0;
    for (std::size_t end = unfinished.find(lineEnd); end != std::wstring::npos;
         end = unfinished.find(lineEnd, start)) {
        const std::wstring_view line = std::wstring_view(unfinished).substr(start, end - start);
        start = end + lineEnd.size();
        if (auto record = ReadHead(line)) {
            records.push_back(std::move(*record));
        } else if (!records.empty()) {
            records.back().message.append(lineEnd).append(line);
        }
    }
    unfinished.erase(0, start);
    if (unfinished.size() > longestLine) unfinished.clear();
    return records;
}

void LogFindings::Note(const RunRecord& record) {
    const std::wstring_view message = record.message;
    began = began || message == L"Installing Applications";
    packageFailed = packageFailed || message == L"MSI Installer returned an error";
    packageCancelled = packageCancelled || message == L"MSI Installer returned user canceled.";
    restartWanted = restartWanted || message == L"MSI Installer returned reboot requires.";
    prerequisiteMissing = prerequisiteMissing || message.starts_with(L"!!!! Install .Net");
    otherCopy = otherCopy || message == L"There is another instance of Kestrune running";
    libraryMissing = libraryMissing || message == L"Failed to load Brevanto.dll!";
    crashed = crashed || message.starts_with(L"Unhandled exception in the ") ||
              message == L"The install thread could not be started";
    if (message.starts_with(L"Removal of ") &&
        message.find(L" failed with error=") != std::wstring_view::npos) {
        failedRemovals.emplace_back(message);
    }
}

bool IsNoise(const RunRecord& record) {
    return record.message == ordinaryStart || record.message == L"Default Configuration File Values" ||
           record.message.starts_with(L"<") || record.message.size() > longestToWatch;
}

}  // namespace rollout
