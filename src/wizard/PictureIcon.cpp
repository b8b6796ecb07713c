#include "wizard/PictureIcon.h"

#include <utility>

#include "CommonLib/Files.h"
#include "framework/CImage.h"
#include "framework/Resolution.h"

HICON PictureIcon::For(HWND window) {
    if (!icon) {
        ATL::CImage picture;
        picture.Load(GetPicturePath(name), ResolutionOf(window));
        icon = picture.ToIcon();
    }
    return icon.get();
}

Icon PictureIcon::Renew(HWND window) {
    Icon former = std::exchange(icon, Icon());
    if (former) For(window);
    return former;
}
