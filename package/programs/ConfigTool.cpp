// Stands in for both generations of the driver configuration tool: it saves a profile of presets, without
// asking, into the file that stands last on its command line. The newer one is called with "save /xdc" and an
// unquoted file, the older one with three quoted values.
#include "SampleFile.h"

namespace {

constexpr wchar_t kSave[] = L"save /xdc ";
constexpr wchar_t kFile[] = L"/f \"";

std::wstring TargetFile(const std::wstring& arguments) {
    if (arguments.starts_with(kSave)) return arguments.substr(std::size(kSave) - 1);
    const std::size_t place = arguments.find(kFile);
    if (place == std::wstring::npos) return {};
    const std::size_t start = place + std::size(kFile) - 1;
    return arguments.substr(start, arguments.find(L'"', start) - start);
}

constexpr wchar_t kProfile[] =
    L"<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
    L"<ConfigurationProfiles>\r\n"
    L"  <PrinterProfiles>\r\n"
    L"    <PrinterProfile name=\"Two-sided, saving toner\"/>\r\n"
    L"  </PrinterProfiles>\r\n"
    L"</ConfigurationProfiles>\r\n";

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR arguments, int) {
    const std::wstring file = TargetFile(arguments);
    return !file.empty() && WriteSampleFile(file, kProfile, false) ? 0 : 1;
}
