#include "wizard/CmdLineHelper.h"

#include <memory>

namespace {

using Option = CmdLineHelper::Option;

std::unique_ptr<CmdLineHelper> instance;

// Names are compared whole and with their case.
Option OptionNamed(const std::wstring& name) {
    if (name == L"lang") return Option::Language;
    if (name == L"p") return Option::Port;
    if (name == L"ip") return Option::Address;
    if (name == L"pkgdir") return Option::PackageDirectory;
    return Option::None;
}

}  // namespace

CmdLineHelper& CmdLineHelper::GetInstance() {
    if (!instance) instance = std::make_unique<CmdLineHelper>();
    return *instance;
}

void CmdLineHelper::DestroyInstance() {
    instance.reset();
}

void CmdLineHelper::ParseParam(const std::wstring& parameter, bool isFlag, bool) {
    if (!isFlag) {
        current = Option::None;
        return;
    }
    const std::size_t equals = parameter.find(L'=');
    if (equals == std::wstring::npos) return;
    current = OptionNamed(parameter.substr(0, equals));
    if (current != Option::None) options[current] = parameter.substr(equals + 1);
}

std::wstring CmdLineHelper::GetValue(Option option) const {
    const auto found = options.find(option);
    return found == options.end() ? std::wstring() : found->second;
}
