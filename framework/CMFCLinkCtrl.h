// A button that looks like a link and opens its address.
#pragma once

#include <string>

#include "framework/CWnd.h"
#include "framework/Handles.h"

class CMFCLinkCtrl : public CWnd {
public:
    // The address that a click opens, with the program that the user has for it.
    void SetURL(const std::wstring& address) { url = address; }
    const std::wstring& GetURL() const { return url; }

    // The font of all links from now on, for high contrast; they take the system's colour for links with it.
    // Before that they underline their own and are blue.
    static void SetUnderlinedFont(Font font);

    void DrawItem(const DRAWITEMSTRUCT& item) override;
    void OnClicked() override;

protected:
    void PreSubclassWindow() override;
    const MessageMap& GetMessageMap() const override;

private:
    LRESULT OnSetCursor(WPARAM, LPARAM);

    std::wstring url;
};
