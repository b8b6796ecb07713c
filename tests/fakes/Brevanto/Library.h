// The state of the scripted library: the script, how often each package was asked for, the run that is on.
#pragma once

#include <condition_variable>
#include <map>
#include <mutex>

#include "CommonLib/PackageLibraries.h"
#include "tests/fakes/Brevanto/Script.h"

// Callable from any thread. Every call is recorded before it is answered.
class ScriptedLibrary {
public:
    static ScriptedLibrary& GetInstance();

    // Appends a line to the record: the thread, the name of the export and its arguments, each as name=value.
    void Record(const std::vector<std::wstring>& fields);

    // The scripted package of that path, or null.
    const ScriptedPackage* Find(std::wstring_view path) const;
    // The next answer about the package; a package without one is not installed.
    ScriptedState NextState(std::wstring_view path);

    // Plays the steps of one run on a thread of the library's own and gives its return code; 1618 while
    // another run is on.
    std::uint32_t Run(const ScriptedCall& call, InstallProgressCallback callback);
    // Writes down what a run with this code has made of a package that keeps what is done.
    void Keep(std::wstring_view path, std::uint32_t code, bool installed) const;
    void Cancel();

private:
    ScriptedLibrary();
    std::wstring KeptFile(std::wstring_view path) const;
    void Play(const ScriptStep& step, InstallProgressCallback callback);

    std::wstring folder;
    std::map<std::wstring, ScriptedPackage, std::less<>> packages;
    std::map<std::wstring, std::size_t, std::less<>> statesGiven;
    std::mutex lock;
    std::condition_variable change;
    bool running = false;
    bool cancelled = false;
};
