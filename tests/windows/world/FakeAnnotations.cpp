#include "tests/windows/world/FakeAnnotations.h"

#include <oleacc.h>

#include <map>
#include <tuple>

#include "tests/windows/world/FakeObject.h"

__CRT_UUID_DECL(IAccPropServices, 0x6e26e776, 0x04f0, 0x495d, 0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69)

namespace {

constexpr GUID liveSetting = {0xC12BCD8E, 0x2A8E, 0x4950, {0x8A, 0xE7, 0x36, 0x25, 0x11, 0x1D, 0x58, 0xEB}};

struct Annotation {
    LONG number = 0;
    std::wstring text;
};

struct Before {
    bool operator()(const GUID& one, const GUID& other) const {
        return memcmp(&one, &other, sizeof(one)) < 0;
    }
};

using Properties = std::map<GUID, Annotation, Before>;

std::map<HWND, Properties> annotations;
std::vector<std::pair<DWORD, HWND>> raised;

const Annotation* Find(HWND control, const GUID& property) {
    const auto kept = annotations.find(control);
    if (kept == annotations.end()) return nullptr;
    const auto found = kept->second.find(property);
    return found == kept->second.end() ? nullptr : &found->second;
}

class Annotator : public FakeObject<IAccPropServices> {
public:
    HRESULT STDMETHODCALLTYPE SetHwndProp(HWND control, DWORD object, DWORD part, MSAAPROPID property,
                                          VARIANT value) override {
        if (!IsWholeControl(control, object, part) || value.vt != VT_I4) return E_INVALIDARG;
        annotations[control][property] = {.number = value.lVal, .text = {}};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetHwndPropStr(HWND control, DWORD object, DWORD part, MSAAPROPID property,
                                             LPCWSTR text) override {
        if (!IsWholeControl(control, object, part) || text == nullptr) return E_INVALIDARG;
        annotations[control][property] = {.number = 0, .text = text};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE ClearHwndProps(HWND control, DWORD object, DWORD part,
                                             const MSAAPROPID* properties, int count) override {
        if (!IsWholeControl(control, object, part)) return E_INVALIDARG;
        Properties& kept = annotations[control];
        for (int place = 0; place < count; ++place) kept.erase(properties[place]);
        if (kept.empty()) annotations.erase(control);
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                            AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                                AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*,
                                                          DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                                 AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
        return E_NOTIMPL;
    }

private:
    static bool IsWholeControl(HWND control, DWORD object, DWORD part) {
        return IsWindow(control) != FALSE && object == static_cast<DWORD>(OBJID_CLIENT) &&
               part == CHILDID_SELF;
    }
};

void WINAPI KeepEvent(DWORD event, HWND control, LONG, LONG) {
    raised.emplace_back(event, control);
}

}  // namespace

FakeAnnotations::FakeAnnotations()
    : events("NotifyWinEvent", &KeepEvent), registration(RegisterFake<Annotator>(CLSID_AccPropServices)) {
    annotations.clear();
    raised.clear();
}

FakeAnnotations::~FakeAnnotations() {
    CoRevokeClassObject(registration);
}

std::optional<LONG> FakeAnnotations::RoleOf(HWND control) {
    const Annotation* const role = Find(control, PROPID_ACC_ROLE);
    return role == nullptr ? std::nullopt : std::optional(role->number);
}

std::wstring FakeAnnotations::DescriptionOf(HWND control) {
    const Annotation* const description = Find(control, PROPID_ACC_DESCRIPTION);
    return description == nullptr ? std::wstring() : description->text;
}

bool FakeAnnotations::IsNews(HWND control) {
    const Annotation* const setting = Find(control, liveSetting);
    return setting != nullptr && setting->number > 0;
}

std::size_t FakeAnnotations::Count() {
    std::size_t count = 0;
    for (const auto& [control, properties] : annotations) count += properties.size();
    return count;
}

std::vector<std::pair<DWORD, HWND>> FakeAnnotations::TakeEvents() {
    return std::exchange(raised, {});
}
