#include "tests/wizard/LibraryCalls.h"

#include <ostream>

#include "CommonLib/Utf8.h"
#include "tests/fakes/TextLines.h"
#include "tests/wizard/PackageTree.h"

std::wstring LibraryCall::Argument(const std::wstring& argument) const {
    const auto found = arguments.find(argument);
    return found == arguments.end() ? std::wstring() : found->second;
}

std::wstring LibraryCall::Package() const {
    return std::filesystem::path(Argument(L"path")).filename().wstring();
}

void PrintTo(const LibraryCall& call, std::ostream* stream) {
    *stream << ToUtf8(call.name);
    for (const auto& [name, value] : call.arguments) *stream << ' ' << ToUtf8(name) << '=' << ToUtf8(value);
}

std::vector<LibraryCall> ReadCalls(const std::wstring& path) {
    std::vector<LibraryCall> calls;
    for (const std::vector<std::wstring>& fields : ReadLines(path)) {
        LibraryCall call{.thread = fields.at(0), .name = fields.at(1), .arguments = {}};
        for (std::size_t index = 2; index < fields.size(); ++index) {
            const std::size_t equals = fields[index].find(L'=');
            call.arguments[fields[index].substr(0, equals)] = fields[index].substr(equals + 1);
        }
        calls.push_back(call);
    }
    return calls;
}
