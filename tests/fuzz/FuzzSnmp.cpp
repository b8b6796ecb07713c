#include "standins/discovery/SnmpMessage.h"
#include "tests/fuzz/FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto message = discovery::DecodeSnmpResponse({reinterpret_cast<const char*>(data), size});
    if (!message) return 0;
    Require(message->bindings.size() <= size);
    for (const discovery::SnmpBinding& binding : message->bindings) {
        Require(binding.name.size() >= 2 && binding.name.size() <= discovery::mostArcs);
    }
    return 0;
}
