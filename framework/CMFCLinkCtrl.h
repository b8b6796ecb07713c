// A button that looks like a link, is spoken of as one, and opens its address.
#pragma once

#include <string>

#include "framework/CWnd.h"

class CMFCLinkCtrl : public CWnd {
public:
    // The address that a click opens, with the program that the user has for it.
    void SetURL(const std::wstring& address) { url = address; }
    const std::wstring& GetURL() const { return url; }

    // Underlines the link's own font and draws it blue; in high contrast another font, in the colour of the
    // system for links.
    void DrawItem(const DRAWITEMSTRUCT& item) override;
    void OnClicked() override;

protected:
    void PreSubclassWindow() override;
    const MessageMap& GetMessageMap() const override;

private:
    LRESULT OnSetCursor(WPARAM, LPARAM);

    std::wstring url;
};
