#include "plugin/glyphs.h"

#include "framework/window.h"
#include "res/resource_ids.h"

namespace mc {

fw::ImageList makeGlyphs() {
    fw::ImageList images(ImageList_Create(9, 5, ILC_COLOR24 | ILC_MASK, 3, 0));
    COLORMAP greyText{RGB(128, 128, 128), GetSysColor(COLOR_GRAYTEXT)};
    for (const int id : {IDB_GLYPH_NONE, IDB_GLYPH_UP, IDB_GLYPH_DOWN}) {
        const fw::Bitmap bitmap(CreateMappedBitmap(fw::module(), id, 0, &greyText, 1));
        if (images && bitmap) ImageList_AddMasked(images.get(), bitmap.get(), RGB(255, 255, 255));
    }
    return images;
}

}  // namespace mc
