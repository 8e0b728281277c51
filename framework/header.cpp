#include "framework/header.h"

#include <commctrl.h>

namespace fw {

LRESULT Header::send(UINT message, int index, void* structure) const {
    return SendMessageA(m_handle, message, static_cast<WPARAM>(index),
                        reinterpret_cast<LPARAM>(structure));
}

int Header::count() const {
    return static_cast<int>(SendMessageA(m_handle, HDM_GETITEMCOUNT, 0, 0));
}

Header::Item Header::item(int index) const {
    char caption[256]{};
    HDITEMA info{};
    info.mask = HDI_TEXT | HDI_FORMAT | HDI_IMAGE;
    info.pszText = caption;
    info.cchTextMax = sizeof caption;
    send(HDM_GETITEMA, index, &info);
    return {caption, info.fmt, info.iImage};
}

RECT Header::rect(int index) const {
    RECT rect{};
    send(HDM_GETITEMRECT, index, &rect);
    return rect;
}

void Header::setImage(int index, std::optional<int> image) const {
    HDITEMA info{};
    info.mask = HDI_IMAGE | HDI_FORMAT;
    send(HDM_GETITEMA, index, &info);
    info.fmt = image ? info.fmt | HDF_IMAGE : info.fmt & ~HDF_IMAGE;
    info.iImage = image.value_or(0);
    send(HDM_SETITEMA, index, &info);
}

}  // namespace fw
