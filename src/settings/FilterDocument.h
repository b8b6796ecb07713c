// Filters, by which records are picked.
#pragma once

#include <functional>
#include <string_view>

// Decides whether a record passes a filter, a tag document with one element per condition. The test gets the
// name and the value of each element that ListElementNames finds, and returns false for a name that it does
// not know. Returns true if every condition passed, so an empty filter lets everything pass. May run on any
// thread; calls the test on the caller's thread and keeps no copy of it.
bool MatchesFilter(std::wstring_view filter,
                   const std::function<bool(std::wstring_view name, std::wstring_view value)>& test);
