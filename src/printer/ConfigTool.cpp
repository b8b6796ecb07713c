#include "printer/ConfigTool.h"

#include <algorithm>

#include "CommonLib/TextUtilities.h"

namespace {

std::wstring Quoted(std::wstring_view text) {
    return L"\"" + std::wstring(text) + L"\"";
}

}  // namespace

bool IsV4Driver(std::wstring_view driver) {
    return driver.find(L"V4") != std::wstring_view::npos;
}

const ConfigToolKind& ConfigToolFor(std::wstring_view driver) {
    return IsV4Driver(driver) ? v4ConfigTool : olderConfigTool;
}

std::wstring LastPathWith(const std::vector<std::wstring>& paths, std::wstring_view part) {
    const auto found = std::find_if(paths.rbegin(), paths.rend(), [&](const std::wstring& path) {
        return path.find(part) != std::wstring::npos;
    });
    return found == paths.rend() ? std::wstring() : *found;
}

std::wstring UnpackCommand(std::wstring_view installerPath, std::wstring_view packagePath,
                           std::wstring_view folder) {
    return Quoted(installerPath) + L" /a " + Quoted(packagePath) + L" /qn TARGETDIR=" + Quoted(folder);
}

// By design: the tool's path is never quoted, nor is the file of the newer tool. The tools read their command
// line as a whole.
std::wstring ConfigCommandFor(std::wstring_view driver, const ConfigCommandInputs& inputs) {
    if (IsV4Driver(driver)) return inputs.toolPath + L" save /xdc " + inputs.file;
    return inputs.toolPath + L" /m " + Quoted(inputs.vendor) + L" /d " + Quoted(inputs.product) + L" /f " +
           Quoted(inputs.file);
}

std::wstring ConfigFilePath(std::wstring_view folder, std::wstring_view vendor, std::wstring_view extension,
                            std::uint32_t count) {
    std::wstring path(folder);
    path += vendor;
    if (count > 0) path += L"_" + ToDecimalString(count);
    return path.append(extension);
}

// The code is not printed: it says how many characters of the text are left out at its start. This is the
// settled form of the record.
std::wstring NewConfigurationFailure(std::int32_t code) {
    const std::wstring text = L"Exception in DriverConfigDlg::OnBnClickedConfigNewButton error code = ";
    const auto leftOut = static_cast<std::size_t>(std::max(code, 0));
    return text.substr(std::min(leftOut, text.size()));
}
