// How documents in JSON are written.
#pragma once

#include <ostream>

#include <nlohmann/json.hpp>

namespace packagecheck {

// What is no UTF-8 comes from names of files, and must not end the program.
inline void WriteDocument(std::ostream& out, const nlohmann::ordered_json& document) {
    out << document.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << "\n";
}

}  // namespace packagecheck
