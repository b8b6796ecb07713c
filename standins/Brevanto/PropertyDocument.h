// The properties of a package as a tag document.
#pragma once

#include <string>
#include <vector>

namespace brevanto {

// One row of a package's Property table.
struct Property {
    std::wstring name;
    std::wstring value;
};

// The value of the first property of that name, empty if there is none.
std::wstring PropertyValue(const std::vector<Property>& properties, const std::wstring& name);

// The tag document of the properties for a language, in the order of the table. A property whose name ends
// in a point and a number, such as ProductName.1031, is the value of ProductName for the language "1031" and
// stands in the document under the plain name, and only for that language.
std::wstring BuildPropertyDocument(const std::vector<Property>& properties, const std::wstring& language);

}  // namespace brevanto
