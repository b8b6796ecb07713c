// The wizard's square button with a grey or a green face.
#pragma once

#include <string>
#include <utility>

#include "framework/CWnd.h"

// Works on windows with the style BS_FLAT; on any other it draws nothing and follows no mouse.
class CQorFlatButton : public CWnd {
public:
    // Makes this the page's main button, which is green.
    void SetPrimary() { secondary = false; }

    // Shows the sign, where there is no picture, in place of a text that is too long for the button. The text
    // stays the button's name.
    void SetSign(std::wstring text) { sign = std::move(text); }

    void DrawItem(const DRAWITEMSTRUCT& item) override;

protected:
    void PreSubclassWindow() override;
    const MessageMap& GetMessageMap() const override;

private:
    LRESULT OnMouseMove(WPARAM keys, LPARAM position);
    LRESULT OnMouseLeave(WPARAM, LPARAM);
    bool IsFlat() const;
    void DrawHot();
    void DrawFrame(const DRAWITEMSTRUCT& item) const;
    void DrawCaption(const DRAWITEMSTRUCT& item) const;

    bool hovering = false;
    bool secondary = true;
    std::wstring sign;
};
