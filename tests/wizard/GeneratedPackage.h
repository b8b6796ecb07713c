// A package that a seed makes up, in the tree of a test, and the plan of its run.
#pragma once

#include <array>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/wizard/LibraryCalls.h"
#include "tests/wizard/PackageTree.h"
#include "tools/PackageCheck/Plan.h"

class GeneratedPackage {
public:
    // The tree must outlive the object.
    GeneratedPackage(PackageTree& packageTree, unsigned seed) : tree(packageTree), random(seed) {}

    // Adds packages. The next ones are other ones.
    void AddPackages();
    // Sets the settings, which begin with these.
    void SetSettings(const std::wstring& first);
    // Settings that decide about the pages, with a brand to go on with where there are several.
    std::wstring PageSettings();

    // One of so many, from 0.
    std::size_t Pick(std::size_t count) { return random() % count; }
    bool Toss() { return Pick(2) == 0; }

    packagecheck::Plan MakePlan() const;

    // Of the run; what is installed goes into it with each package.
    packagecheck::PlanOptions options;

private:
    template <std::size_t count>
    std::wstring OneOf(const std::array<const wchar_t*, count>& words) {
        return words.at(Pick(count));
    }

    void SetDevices();
    void AddPackage(std::size_t number);
    void AddFile(const std::wstring& path, const std::wstring& properties);

    PackageTree& tree;
    std::mt19937 random;
    std::wstring names;
};

// What was installed, or is to be: the file's name and the command document.
using Installations = std::vector<std::pair<std::wstring, std::wstring>>;
Installations InstallationsOf(const std::vector<packagecheck::PlannedPackage>& packages);
Installations InstallationsOf(const std::vector<LibraryCall>& calls);

// How many seeds the environment asks for by KESTRUNE_PLAN_SEEDS; 20 where it does not.
unsigned SeedCount();
