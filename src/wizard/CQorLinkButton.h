// A button that looks like a link and is spoken of as one, a blue text; or a picture, which is a button.
#pragma once

#include <string>

#include "framework/CWnd.h"

class CQorLinkButton : public CWnd {
public:
    // Shows that PNG file instead of the text, or a question mark where it is missing. At most 259 characters
    // of the path are kept.
    void SetImagePath(const std::wstring& path);

    void DrawItem(const DRAWITEMSTRUCT& item) override;

protected:
    void PreSubclassWindow() override;

private:
    void DrawCaption(const DRAWITEMSTRUCT& item) const;

    static constexpr std::size_t longestPath = 259;

    std::wstring imagePath;
};
