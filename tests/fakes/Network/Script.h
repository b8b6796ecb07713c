// What the scripted network answers. A test writes Network.script beside the two libraries; each line is one
// entry. The answers of the first discovery run stand first; a line "run" begins those of the next run, and
// the last answers stand for all later runs.
//
//   discover STEP...         one step of the search, enumerate STEP... one of each listing call,
//                            colours STEP... one of the question to all devices:
//       pause MILLISECONDS
//       untilFile PATH       waits until the file exists
//       return CODE          what the call returns, 0 without it; enumerate asks for room first all the same
//       required NUMBER      the length that the call tells in place of the true one
//       again                enumerate alone: never has enough room
//       foreign              colours alone: the reply lies in memory of the library's own
//   document TEXT            a device of the listing
//   listing TEXT             the whole listing as it is, in place of the documents
//   reply TEXT               the reply of all devices about their colours
//   device ADDRESS STEP...   what the device of that address answers, one step a line:
//       npa HEX              the bytes of its packet
//       return CODE          what the second call returns, or the first if there is no packet
//       required NUMBER, again, pause MILLISECONDS, untilFile PATH as above
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

struct NetworkAnswer {
    // Waiting steps, as kind and argument.
    std::vector<std::pair<std::wstring, std::wstring>> waits;
    std::uint32_t code = 0;
    std::optional<std::uint32_t> required;
    bool again = false;
    bool foreign = false;
    std::vector<std::uint8_t> packet;
};

struct NetworkRun {
    NetworkAnswer discover;
    NetworkAnswer enumerate;
    NetworkAnswer colours;
    // Each document with its closing NUL, or whatever the script gives.
    std::wstring listing;
    std::wstring reply;
    std::map<std::wstring, NetworkAnswer> devices;
};

// At least one run. Throws std::invalid_argument for a line that is none of the above.
std::vector<NetworkRun> ReadNetworkScript(const std::wstring& path);
