// Operations on a tag document: a plain text of <NAME>value</NAME> elements that is searched and never
// parsed. Nothing is escaped, nesting is not seen, names are compared exactly, and the first element of a
// name is the one that counts. All operations are free of state, may run on any thread, take time in
// proportion to the document, and fail only where memory runs out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TagDocument {

// Reads the first element of that name into value and returns true; an empty element has the empty value.
// Where the close tag stands before the open tag, the value is all that follows the open tag. Attributes of
// the open tag are passed over. Returns false and leaves value as it was where there is no such element.
bool FindValue(std::wstring_view document, std::wstring_view name, std::wstring& value);

// Returns the value that FindValue finds, or the empty text where it finds none.
std::wstring ValueOf(std::wstring_view document, std::wstring_view name);

// Returns the element as text: open tag, value, close tag.
std::wstring MakeElement(std::wstring_view name, std::wstring_view value);

// Erases the first element of that name, which must be written without attributes. Where the close tag
// stands before the open tag, everything from the open tag on is erased.
void RemoveElement(std::wstring& document, std::wstring_view name);

// Replaces the first element of that name and moves it to the end; does nothing for an empty name.
void SetElement(std::wstring& document, std::wstring_view name, std::wstring_view value);

// Returns the names of the elements that stand on one line and are not empty, in their order; elements inside
// a listed element are left out. The result is that of all matches of <(.+?)>(.+?)</\1> in the document,
// each with the text in front of its first ">". The empty name can occur, for a tag that begins with "<>".
std::vector<std::wstring> ListElementNames(std::wstring_view document);

// Returns the values of all elements of that name, in their order; attributes are not allowed for.
std::vector<std::wstring> ListValues(std::wstring_view document, std::wstring_view name);

}  // namespace TagDocument
