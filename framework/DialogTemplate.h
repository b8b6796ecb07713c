// A copy of a dialog template of the program, to be changed before a dialog is made from it.
#pragma once

#include <windows.h>

#include <vector>

class DialogTemplate {
public:
    // Empty if the program has no template of that id.
    explicit DialogTemplate(UINT id);

    bool IsEmpty() const { return bytes.empty(); }
    DWORD ExtendedStyle() const;
    void SetExtendedStyle(DWORD style);
    // Makes letters larger, and with them everything else, since the measures of a template follow them: by
    // as many points as stand to the size of the letters as one number to the other.
    void Grow(int to, int from);

    // The size of the window that the template makes, with its frame; 0 by 0 if the system makes none.
    SIZE SizeOnScreen() const;

    // For the functions of the system that make dialogs; lives as long as this object.
    DLGTEMPLATE* get() { return reinterpret_cast<DLGTEMPLATE*>(bytes.data()); }

private:
    // Where the size of the letters stands, or 0 if the template names none.
    std::size_t PlaceOfPoints() const;

    std::vector<BYTE> bytes;
};
