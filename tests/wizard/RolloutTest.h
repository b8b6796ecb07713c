// A test of Rollout.exe from outside: it lies in the tree of a package whose library is scripted, and drives
// the real wizard.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "framework/Handles.h"
#include "tests/wizard/WizardTest.h"

#include <nlohmann/json.hpp>

// A started Rollout.exe with what it prints.
class RolloutProcess {
public:
    RolloutProcess(std::filesystem::path programPath, std::filesystem::path outputPath)
        : program(std::move(programPath)), output(std::move(outputPath)) {}
    ~RolloutProcess();
    RolloutProcess(const RolloutProcess&) = delete;
    RolloutProcess& operator=(const RolloutProcess&) = delete;

    void Start(const std::wstring& arguments, HANDLE token = nullptr);
    bool IsRunning() const;
    // Waits for the end, or ends it at the limit and fails. Returns the exit code.
    std::uint32_t WaitForEnd();
    // Presses Ctrl+Break.
    void Interrupt() const;
    void Kill();
    // What it has printed so far.
    std::string Output() const;

private:
    std::filesystem::path program;
    std::filesystem::path output;
    KernelHandle process;
};

class RolloutTest : public WizardTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // Starts Rollout.exe with a report and waits for its end. Returns the exit code.
    std::uint32_t RunRollout(const std::wstring& arguments = {});
    void StartRollout(const std::wstring& arguments = {});
    // The report of the run.
    nlohmann::json Report() const;
    // The outcome that it holds for each product.
    std::map<std::string, std::string> Outcomes() const;
    // Waits until the basic log holds the message.
    bool WaitForBasicMessage(const std::wstring& message) const;
    // Ends every Kestrune.exe of the tree as a task manager does. Returns whether there was one.
    bool KillWizard() const;
    // A package that is installed for good once it is installed.
    static TestPackage Lasting(const std::wstring& path, const ScriptedCall& install = {});

    RolloutProcess rollout{tree.ProgramFolder() / L"Rollout.exe", tree.Root() / L"rollout.txt"};
};
