#include "framework/CEdit.h"

#include <windows.h>

#include <commctrl.h>

const MessageMap& CEdit::GetMessageMap() const {
    using On = EventsOf<CEdit>;
    static const MessageMap map(nullptr, {
                                             On::Message(WM_KILLFOCUS, &CEdit::OnLeft),
                                             On::Message(WM_KEYDOWN, &CEdit::OnLeft),
                                         });
    return map;
}

std::size_t CEdit::GetLength() const {
    return static_cast<std::size_t>(SendMessage(WM_GETTEXTLENGTH));
}

void CEdit::MoveCaretToEnd() {
    const std::size_t end = GetLength();
    SendMessage(EM_SETSEL, end, static_cast<LPARAM>(end));
    SendMessage(EM_SCROLLCARET);
}

void CEdit::ShowBalloonTip(std::wstring text) {
    EDITBALLOONTIP tip{.cbStruct = sizeof(EDITBALLOONTIP), .pszTitle = L"", .pszText = text.c_str()};
    tip.ttiIcon = TTI_NONE;
    if (SendMessage(EM_SHOWBALLOONTIP, 0, reinterpret_cast<LPARAM>(&tip)) == FALSE) ShowOwnBalloon(text);
}

void CEdit::ShowOwnBalloon(std::wstring& text) {
    if (balloon.GetSafeHwnd() == nullptr && !balloon.Create(*this, TTS_BALLOON)) return;
    balloon.SendMessage(WM_SETFONT, static_cast<WPARAM>(SendMessage(WM_GETFONT)), FALSE);
    balloon.ShowAt(*this, text);
}

LRESULT CEdit::OnLeft(WPARAM, LPARAM) {
    balloon.Hide(*this);
    return Default();
}
