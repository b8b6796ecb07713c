// Inputs of the fuzzers as records, so that they can be changed without breaking the lengths around the
// change.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// A piece of an input: what stands before its length or makes its tags, its bytes, and after them the records
// that it is made of. The format says what a record without a head is; most take it for bytes alone.
struct Record {
    std::string head;
    std::string body;
    std::vector<Record> parts;
};

// Each format defines these two. Whatever the bytes are, writing what was read gives a whole input: the same
// bytes where the format was obeyed, but for pointers in names, and others with lengths and numbers that fit
// where it was not.
Record ReadRecords(std::string_view input);
std::string WriteRecords(const Record& whole);
