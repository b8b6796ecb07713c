#include <algorithm>
#include <cstdint>
#include <random>
#include <utility>

#include "tests/fuzz/Records.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace {

// Changes a tree of records at random places.
class RecordMutator {
public:
    RecordMutator(Record& root, unsigned seed) : whole(root), random(seed) {}

    void Mutate() {
        constexpr std::size_t mostSteps = 4;
        for (std::size_t rest = 1 + Below(mostSteps); rest > 0; --rest) Step();
    }

private:
    void Step() {
        constexpr std::size_t kinds = 6;
        Record& group = AnyOf([](const Record& record) { return !record.parts.empty(); });
        const std::size_t kind = group.parts.empty() ? 0 : Below(kinds);
        if (kind < 2) return Change(AnyOf([](const Record&) { return true; }));
        auto& parts = group.parts;
        const auto place = parts.begin() + static_cast<std::ptrdiff_t>(Below(parts.size()));
        if (kind == 2) parts.erase(place);
        if (kind == 3) std::swap(*place, parts[Below(parts.size())]);
        if (kind == 4) parts.insert(place, Record(parts[Below(parts.size())]));
        if (kind == 5) *place = Record(AnyOf([](const Record&) { return true; }));
    }

    void Change(Record& record) {
        constexpr std::size_t room = 16;
        const bool isHead = !record.head.empty() && Below(4) == 0;
        std::string& bytes = isHead ? record.head : record.body;
        const std::size_t size = bytes.size();
        bytes.resize(size + room);
        bytes.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(bytes.data()), size, bytes.size()));
    }

    // One of those records that are as wanted, each as likely as the others; the root where there is none.
    template <class IsWanted>
    Record& AnyOf(IsWanted isWanted) {
        std::vector<Record*> found;
        std::vector<Record*> open{&whole};
        while (!open.empty()) {
            Record* const record = open.back();
            open.pop_back();
            if (isWanted(*record)) found.push_back(record);
            for (Record& part : record->parts) open.push_back(&part);
        }
        return found.empty() ? whole : *found[Below(found.size())];
    }

    std::size_t Below(std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random);
    }

    Record& whole;
    std::minstd_rand random;
};

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed) {
    constexpr unsigned plainShare = 3;
    // Lengths that lie are found by bytes that change at random.
    if (seed % plainShare == 0) return LLVMFuzzerMutate(data, size, most);
    Record whole = ReadRecords({reinterpret_cast<const char*>(data), size});
    RecordMutator(whole, seed).Mutate();
    const std::string bytes = WriteRecords(whole);
    if (bytes.empty() || bytes.size() > most) return LLVMFuzzerMutate(data, size, most);
    std::copy(bytes.begin(), bytes.end(), data);
    return bytes.size();
}
