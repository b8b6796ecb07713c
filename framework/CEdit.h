// The system's edit control.
#pragma once

#include <cstddef>
#include <string>

#include "framework/CToolTipCtrl.h"
#include "framework/CWnd.h"

class CEdit : public CWnd {
public:
    std::size_t GetLength() const;
    // The first characters of the text, as many as that.
    std::wstring GetText(std::size_t longest) const { return GetWindowText().substr(0, longest); }

    // Puts the caret after the text and into view.
    void MoveCaretToEnd();
    // Shows the text in a balloon at the field until the user types or goes elsewhere.
    void ShowBalloonTip(std::wstring text);

protected:
    const MessageMap& GetMessageMap() const override;

private:
    LRESULT OnLeft(WPARAM, LPARAM);
    void ShowOwnBalloon(std::wstring& text);

    // For controls that show no balloons of their own: those without the themed common controls.
    CToolTipCtrl balloon;
};
