#include "CommonLib/XmlAttributeReader.h"

#include <ole2.h>

#include <map>

#include "CommonLib/Com.h"
#include "CommonLib/TextUtilities.h"

namespace {

using Microsoft::WRL::ComPtr;

constexpr std::uint32_t elementNotFound = 1168;
// The document class of MSXML 3, which every system has.
constexpr CLSID msxml3Document = {
    0xF5078F32, 0xC551, 0x11D3, {0x89, 0xB9, 0x00, 0x00, 0xF8, 0x1F, 0xE2, 0x21}};

void Require(HRESULT result, int line) {
    if (FAILED(result)) {
        throw ComException(L"XmlAttributeReader, a call on the document failed", result,
                           L"CommonLib/XmlAttributeReader", line);
    }
}

using Attributes = std::map<std::wstring, std::wstring>;

Attributes AttributesOf(IXMLDOMNode& node) {
    ComPtr<IXMLDOMNamedNodeMap> nodes;
    Require(node.get_attributes(&nodes), __LINE__);
    long count = 0;
    if (nodes) Require(nodes->get_length(&count), __LINE__);
    Attributes attributes;
    for (long index = 0; index < count; ++index) {
        ComPtr<IXMLDOMNode> attribute;
        Require(nodes->get_item(index, &attribute), __LINE__);
        ComText name;
        ComText text;
        Require(attribute->get_nodeName(name.put()), __LINE__);
        Require(attribute->get_text(text.put()), __LINE__);
        attributes[name.str()] = text.str();
    }
    return attributes;
}

}  // namespace

XmlAttributeReader::XmlAttributeReader(const std::wstring& pathOrText) : source(pathOrText) {
    CreateDocument();
    if (document) Load();
}

void XmlAttributeReader::CreateDocument() {
    ComPtr<IUnknown> created;
    if (FAILED(CoCreateInstance(msxml3Document, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&created))))
        return;
    if (FAILED(OleRun(created.Get()))) return;
    static_cast<void>(created.CopyTo(IID_IXMLDOMDocument, reinterpret_cast<void**>(document.GetAddressOf())));
}

void XmlAttributeReader::Load() {
    Require(document->put_async(VARIANT_FALSE), __LINE__);
    Require(document->put_resolveExternals(VARIANT_FALSE), __LINE__);
    Require(document->put_validateOnParse(VARIANT_FALSE), __LINE__);
    const ComText text(source);
    VARIANT path{};
    path.vt = VT_BSTR;
    path.bstrVal = text.get();
    VARIANT_BOOL succeeded = VARIANT_FALSE;
    Require(document->load(path, &succeeded), __LINE__);
    if (succeeded != VARIANT_TRUE) Require(document->loadXML(text.get(), &succeeded), __LINE__);
    isLoaded = succeeded == VARIANT_TRUE;
}

std::uint32_t XmlAttributeReader::GetAttribute(const std::wstring& query, const std::wstring& attribute,
                                               std::wstring& value) const {
    if (!document) return elementNotFound;
    ComPtr<IXMLDOMNodeList> nodes;
    Require(document->selectNodes(ComText(query).get(), &nodes), __LINE__);
    ComPtr<IXMLDOMNode> first;
    Require(nodes->get_item(0, &first), __LINE__);
    if (!first) return elementNotFound;
    const Attributes attributes = AttributesOf(*first.Get());
    const auto found = attributes.find(attribute);
    if (found == attributes.end()) return elementNotFound;
    value = found->second;
    return 0;
}
