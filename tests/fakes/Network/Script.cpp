#include "tests/fakes/Network/Script.h"

#include <stdexcept>

#include "tests/fakes/TextLines.h"

namespace {

using Fields = std::vector<std::wstring>;

std::vector<std::uint8_t> Bytes(const std::wstring& hex) {
    std::vector<std::uint8_t> bytes;
    for (std::size_t place = 0; place + 1 < hex.size(); place += 2) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(hex.substr(place, 2), nullptr, 16)));
    }
    return bytes;
}

void TakeStep(const std::wstring& kind, const std::wstring& argument, NetworkAnswer& answer) {
    if (kind == L"pause" || kind == L"untilFile") {
        answer.waits.emplace_back(kind, argument);
    } else if (kind == L"return") {
        answer.code = ReadNumber(argument);
    } else if (kind == L"required") {
        answer.required = ReadNumber(argument);
    } else if (kind == L"again") {
        answer.again = true;
    } else if (kind == L"foreign") {
        answer.foreign = true;
    } else if (kind == L"npa") {
        answer.packet = Bytes(argument);
    } else {
        throw std::invalid_argument("a step of the script that nobody knows");
    }
}

std::wstring Argument(const Fields& fields, std::size_t place) {
    return fields.size() > place ? fields[place] : std::wstring();
}

void TakeLine(const Fields& fields, NetworkRun& run) {
    const std::wstring& verb = fields.front();
    if (verb == L"document") {
        run.listing += fields.at(1) + L'\0';
    } else if (verb == L"listing") {
        run.listing = fields.at(1);
    } else if (verb == L"reply") {
        run.reply = fields.at(1);
    } else if (verb == L"device") {
        TakeStep(fields.at(2), Argument(fields, 3), run.devices[fields.at(1)]);
    } else if (verb == L"discover") {
        TakeStep(fields.at(1), Argument(fields, 2), run.discover);
    } else if (verb == L"enumerate") {
        TakeStep(fields.at(1), Argument(fields, 2), run.enumerate);
    } else if (verb == L"colours") {
        TakeStep(fields.at(1), Argument(fields, 2), run.colours);
    } else {
        throw std::invalid_argument("a line of the script that nobody knows");
    }
}

}  // namespace

std::vector<NetworkRun> ReadNetworkScript(const std::wstring& path) {
    std::vector<NetworkRun> runs(1);
    for (const Fields& fields : ReadLines(path)) {
        if (fields.front() == L"run") {
            runs.emplace_back();
        } else {
            TakeLine(fields, runs.back());
        }
    }
    return runs;
}
