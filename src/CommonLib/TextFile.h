// Text files, read by the line as the package's files are meant to be.
#pragma once

#include <functional>
#include <string>
#include <string_view>

// Opens the file in the runtime's text mode and hands out its bytes piece by piece: a line with its end, or
// 2,047 bytes of a longer one. A piece ends before its first null byte. Returns 0, or the error number of a
// file that cannot be opened.
int ReadTextPieces(const std::wstring& path, const std::function<void(std::string_view)>& takePiece);
