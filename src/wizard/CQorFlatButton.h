// The wizard's square button with a grey or a green face.
#pragma once

#include "framework/CWnd.h"

// Works on windows with the style BS_FLAT; on any other it draws nothing and follows no mouse.
class CQorFlatButton : public CWnd {
public:
    CQorFlatButton();

    // Makes this the page's main button, which is green.
    void SetPrimary() { secondary = false; }

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
};
