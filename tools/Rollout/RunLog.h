// What a run has written into the wizard's log.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace rollout {

struct RunRecord {
    std::wstring level;
    std::wstring time;
    std::wstring message;
};

// Makes records of the bytes of a basic log as they come, in UTF-16. Lines that begin no record belong to the
// message of the one above, as long as they come along with it; what stands before the first record is
// nobody's and is dropped.
class RecordReader {
public:
    // Returns the records whose lines have come to their ends.
    std::vector<RunRecord> Take(std::string_view bytes);

private:
    std::string undecoded;
    std::wstring unfinished;
};

// What the records of one run say of it.
struct LogFindings {
    bool began = false;
    bool packageFailed = false;
    bool packageCancelled = false;
    bool restartWanted = false;
    bool prerequisiteMissing = false;
    bool otherCopy = false;
    bool libraryMissing = false;
    bool crashed = false;
    // The records of removals that failed.
    std::vector<std::wstring> failedRemovals;

    void Note(const RunRecord& record);
};

// Returns true for a record that says nothing to somebody who watches the run: the settings as they were
// read, and the error that is part of every ordinary start.
bool IsNoise(const RunRecord& record);

}  // namespace rollout
