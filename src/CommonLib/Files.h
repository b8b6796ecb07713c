// Folders and files.
#pragma once

#include <string>
#include <vector>

// The full path of the running program's file, however long it is.
std::wstring GetExePath();

// The folder of the running program, without a closing backslash.
std::wstring GetExeDirectory();

// The folder above the running program's, where the package's settings, texts and pictures are, without a
// closing backslash.
std::wstring GetSetupDirectory();

// The full path of a picture of the package.
std::wstring GetPicturePath(const std::wstring& fileName);

// Appends to the list the full path of every entry of the folder (which ends in a backslash) with that
// extension, folders included, in the order of the file system; an empty extension takes every entry. With a
// name filter an entry counts only if its name occurs in the filter's text. Returns the size of the list.
std::size_t FindFiles(const std::wstring& folder, std::vector<std::wstring>& paths,
                      const std::wstring& extension, const std::wstring& nameFilter = {});

// Creates the folder with all that lead to it. True if it is there afterwards.
[[nodiscard]] bool CreateFolderPath(const std::wstring& path);

// Returns true if there is a file or folder of that path, whether it can be opened or not.
bool PathExists(const std::wstring& path);

// Returns true if there is something of that path and it is no folder.
bool IsFile(const std::wstring& path);

// Returns true if that path is a link or a junction to a folder.
bool IsFolderLink(const std::wstring& path);

// Returns true if the file can be opened for reading while others read it too.
bool CanBeRead(const std::wstring& path);

// Returns true if the file can be opened for reading by this program alone: a file that is still being
// written, or that anybody else has open, does not count as being there.
bool CanBeReadAlone(const std::wstring& path);

// Copies a file over whatever is at the target.
[[nodiscard]] bool CopyFileTo(const std::wstring& target, const std::wstring& source);

// The folder of the system for temporary files, with its closing backslash.
std::wstring GetTemporaryFolder();

// The machine-wide folder of application data, without a closing backslash.
std::wstring GetCommonDataFolder();
