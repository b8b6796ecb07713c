// Reads attributes of an XML document with the system's parser.
#pragma once

#include <windows.h>

#include <msxml.h>
#include <wrl/client.h>

#include <cstdint>
#include <string>

#include "CommonLib/Com.h"
#include "CommonLib/Exception.h"

// A COM call on the document has failed; the code is the call's result.
class ComException : public Exception {
public:
    using Exception::Exception;
};

// Stays on the thread that made it.
class XmlAttributeReader {
public:
    // Takes the text as the path of a file; if that does not load, as XML itself. Nothing outside the
    // document is read for it. Throws ComException if a call on the document fails.
    explicit XmlAttributeReader(const std::wstring& pathOrText);
    XmlAttributeReader(const XmlAttributeReader&) = delete;
    XmlAttributeReader& operator=(const XmlAttributeReader&) = delete;
    ~XmlAttributeReader() = default;

    // Returns 0 and the value of that attribute of the first node that the query finds, or 1168 if there is
    // no such node or attribute; the value is then left as it was. Throws ComException for a query that the
    // parser refuses.
    std::uint32_t GetAttribute(const std::wstring& query, const std::wstring& attribute,
                               std::wstring& value) const;

    bool IsLoaded() const { return isLoaded; }

private:
    void CreateDocument();
    void Load();

    // Outlives the document.
    ComApartment apartment{COINIT_DISABLE_OLE1DDE};
    Microsoft::WRL::ComPtr<IXMLDOMDocument> document;
    bool isLoaded = false;
    std::wstring source;
};
