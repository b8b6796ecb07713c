// What a check has found.
#pragma once

#include <cstddef>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

// A place in a text, both numbers from 1 and the column in characters, as editors count them. Line 0 stands
// for the file as a whole.
struct Position {
    std::size_t line = 0;
    std::size_t column = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): no pointer is compared here.
    auto operator<=>(const Position&) const = default;
};

struct Place {
    std::string file;  // from the package's root, with "/"; empty for the package as a whole
    Position position;

    // NOLINTNEXTLINE(modernize-use-nullptr): no pointer is compared here.
    auto operator<=>(const Place&) const = default;
};

struct Finding {
    const Rule* rule = nullptr;  // never null in a report
    Place place;
    std::string message;  // one or two sentences with the values of the case
};

// Collects findings. Belongs to one thread at a time.
class Report {
public:
    void Add(const Rule& rule, Place place, std::string message) {
        findings.push_back({.rule = &rule, .place = std::move(place), .message = std::move(message)});
    }

    // By file and place; findings of one place in the order in which they came. One that says the same as
    // another of its place is left out.
    std::vector<Finding> Sorted() const;

private:
    std::vector<Finding> findings;
};

// Returns 0 without findings, 2 with an error among them, 1 otherwise.
int ExitCodeFor(const std::vector<Finding>& findings);

}  // namespace packagecheck
