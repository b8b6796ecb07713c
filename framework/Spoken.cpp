#include "framework/Spoken.h"

#include <objbase.h>
#include <wrl/client.h>

#include <array>

namespace {

using Microsoft::WRL::ComPtr;

// A property of UI Automation; the value for text that waits until the user listens.
// https://learn.microsoft.com/windows/win32/winauto/uiauto-automation-element-propids
constexpr GUID liveSetting = {0xC12BCD8E, 0x2A8E, 0x4950, {0x8A, 0xE7, 0x36, 0x25, 0x11, 0x1D, 0x58, 0xEB}};
constexpr LONG polite = 1;

// The part of a window that its properties are set for; the service takes the number without a sign.
constexpr DWORD client = static_cast<DWORD>(OBJID_CLIENT);

ComPtr<IAccPropServices> Annotations() {
    ComPtr<IAccPropServices> service;
    CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                     reinterpret_cast<void**>(service.GetAddressOf()));
    return service;
}

void SetNumber(HWND control, const GUID& property, LONG number) {
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = number;
    if (const auto service = Annotations())
        service->SetHwndProp(control, client, CHILDID_SELF, property, value);
}

void Clear(IAccPropServices& service, HWND control) {
    const std::array properties{PROPID_ACC_ROLE, PROPID_ACC_DESCRIPTION, liveSetting};
    service.ClearHwndProps(control, client, CHILDID_SELF, properties.data(),
                           static_cast<int>(properties.size()));
}

}  // namespace

void SpeakAsLink(HWND control) {
    SetNumber(control, PROPID_ACC_ROLE, ROLE_SYSTEM_LINK);
}

void SetSpokenDescription(HWND control, const std::wstring& text) {
    const auto service = Annotations();
    if (!service) return;
    if (text.empty()) {
        service->ClearHwndProps(control, client, CHILDID_SELF, &PROPID_ACC_DESCRIPTION, 1);
    } else {
        service->SetHwndPropStr(control, client, CHILDID_SELF, PROPID_ACC_DESCRIPTION, text.c_str());
    }
    NotifyWinEvent(EVENT_OBJECT_DESCRIPTIONCHANGE, control, OBJID_CLIENT, CHILDID_SELF);
}

void SpeakAsNews(HWND control) {
    SetNumber(control, liveSetting, polite);
}

void TellNews(HWND control) {
    NotifyWinEvent(liveRegionChanged, control, OBJID_CLIENT, CHILDID_SELF);
}

void TellNewRows(HWND list) {
    NotifyWinEvent(EVENT_OBJECT_REORDER, list, OBJID_CLIENT, CHILDID_SELF);
}

void ForgetSpoken(HWND control) {
    if (const auto service = Annotations()) Clear(*service.Get(), control);
}

void ForgetSpokenIn(HWND window) {
    const auto service = Annotations();
    if (!service) return;
    EnumChildWindows(
        window,
        [](HWND control, LPARAM annotations) {
            Clear(*reinterpret_cast<IAccPropServices*>(annotations), control);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(service.Get()));
}
