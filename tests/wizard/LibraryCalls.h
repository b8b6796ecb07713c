// The calls that the program made to the scripted library, in their order.
#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

struct LibraryCall {
    std::wstring thread;
    std::wstring name;
    std::map<std::wstring, std::wstring> arguments;

    // The value of an argument, empty if the call has none of that name.
    std::wstring Argument(const std::wstring& argument) const;
    // The file name of the package that the call speaks of.
    std::wstring Package() const;
};

void PrintTo(const LibraryCall& call, std::ostream* stream);

std::vector<LibraryCall> ReadCalls(const std::wstring& path);
