// The merge of a settings file into the settings.
#pragma once

#include <string>
#include <string_view>

// Merges the elements of the incoming settings text into the document. The first element of a name replaces
// the document's first value, each later one is added at the end. The merged record keeps what has been
// merged so far: hand in an empty text for the first merge of a process and the same text again for later
// ones. Only elements that ListElementNames finds in the incoming text take part. Not safe for two threads on
// one document. The time grows with the length of the texts and with n log n of their elements.
void MergeDocument(std::wstring& document, std::wstring& mergedRecord, std::wstring_view incoming);
