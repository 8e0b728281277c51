#include "listctrl/filter_header.h"

#include <algorithm>
#include <utility>

#include "framework/drawing.h"
#include "framework/hwnd.h"
#include "listctrl/list_colors.h"

namespace mc {

namespace {

constexpr UINT kFirstBoxId = 5000;

// A column that is filtered is tinted.
RowColors captionColors(bool filtered) {
    const COLORREF face = GetSysColor(COLOR_BTNFACE), text = GetSysColor(COLOR_BTNTEXT);
    if (!filtered) return {face, text};
    if (highContrast()) return selectionColors(true);
    return {fw::tinted(face, GetSysColor(COLOR_HIGHLIGHT), 70, text), text};
}

}  // namespace

}  // namespace mc

namespace fw {
template <>
struct Crack<HDM_LAYOUT> {  // (HDLAYOUT&)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(*reinterpret_cast<HDLAYOUT*>(l));
    }
};
}  // namespace fw

namespace mc {

bool CFilterHeader::attach(HWND header, HFONT font, HIMAGELIST glyphs) {
    m_font = font;
    m_glyphs = glyphs;
    SetWindowLongPtrA(header, GWL_STYLE, GetWindowLongPtrA(header, GWL_STYLE) | WS_CLIPCHILDREN);
    return subclass(header);
}

const fw::MessageMap& CFilterHeader::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<HDM_LAYOUT, &CFilterHeader::onLayout>(),
        fw::on<WM_PAINT, &CFilterHeader::onPaint>(),
        fw::on<WM_ERASEBKGND, &CFilterHeader::onErase>(),
        fw::observe<WM_SIZE, &CFilterHeader::onSize>(),
        fw::onAnyCommand<&CFilterHeader::onBoxCommand>(),
        fw::on<WM_DRAWITEM, &CFilterHeader::onDrawItem>(),
        fw::on<WM_DPICHANGED_AFTERPARENT, &CFilterHeader::onDpiChanged>(),
        fw::observe<WM_CANCELMODE, &CFilterHeader::onCancelMode>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

LRESULT CFilterHeader::onLayout(HDLAYOUT& layout) {
    const LRESULT result = controlDefault(HDM_LAYOUT, 0, reinterpret_cast<LPARAM>(&layout));
    m_captionHeight = layout.pwpos->cy;
    layout.pwpos->cy += m_boxHeight;
    layout.prc->top += m_boxHeight;
    return result;
}

// ---- The boxes ----

CFilterHeader::~CFilterHeader() {
    dropBoxes();
}

// A box that goes may still send notifications, which find no box here any more.
void CFilterHeader::dropBoxes() {
    const auto gone = std::exchange(m_boxes, {});
}

void CFilterHeader::setBoxes(const std::vector<ColumnFilter>& filters) {
    dropBoxes();
    const auto heights = CFilterBox::heightsIn(m_font, handle());
    for (const ColumnFilter& filter : filters) {
        const auto item = static_cast<int>(m_boxes.size());
        auto box = std::make_unique<CFilterBox>(m_owner, item);
        const UINT id = kFirstBoxId + static_cast<UINT>(item);
        const std::string name = control().item(item).caption + " filter";
        if (!box->create(handle(), id, name, m_font, heights, filter)) break;
        m_boxes.push_back(std::move(box));
    }
    measureBoxes();
    layOutBoxes();
}

void CFilterHeader::setFont(HFONT font) {
    m_font = font;
    const auto heights = CFilterBox::heightsIn(font, handle());
    for (const auto& box : m_boxes) box->setFont(font, heights);
    measureBoxes();
}

// The list set the font before the control had its part.
void CFilterHeader::onDpiChanged() {
    controlDefault(WM_DPICHANGED_AFTERPARENT, 0, 0);
    fw::setFont(handle(), m_font);
    layOutBoxes();
}

// A divider that is dragged stays where it is. Not every version of the control ends a drag that
// loses the mouse; let go outside, a pressed caption is not clicked.
void CFilterHeader::onCancelMode() {
    if (GetCapture() != handle()) return;
    controlDefault(WM_LBUTTONUP, 0, MAKELPARAM(fw::mousePointIn(handle()).x, -1000));
}

void CFilterHeader::measureBoxes() {
    if (!m_boxes.empty()) m_boxHeight = m_boxes.back()->height() + scaled(2);
}

void CFilterHeader::closeDrops() {
    for (const auto& box : m_boxes) box->closeDrop();
}

void CFilterHeader::layOutBoxes() {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        const RECT item = control().rect(static_cast<int>(i));
        const int width = std::max(static_cast<int>(item.right - item.left) - scaled(2), 0);
        m_boxes[i]->moveTo(item.left, m_captionHeight, width);
    }
    InvalidateRect(handle(), nullptr, FALSE);
}

ColumnFilter CFilterHeader::filter(int item) const {
    const auto box = static_cast<std::size_t>(item);
    return box < m_boxes.size() ? m_boxes[box]->filter() : ColumnFilter{};
}

bool CFilterHeader::applyTyped() {
    bool any = false;
    for (const auto& box : m_boxes) any |= box->applyTyped();
    return any;
}

void CFilterHeader::clear() {
    for (const auto& box : m_boxes) box->putBack({});
    InvalidateRect(handle(), nullptr, FALSE);
}

void CFilterHeader::putBack(int item, ColumnFilter filter) {
    const auto box = static_cast<std::size_t>(item);
    if (box < m_boxes.size() && m_boxes[box]->filter() != filter)
        m_boxes[box]->putBack(std::move(filter));
    InvalidateRect(handle(), nullptr, FALSE);
}

std::vector<HWND> CFilterHeader::stops() const {
    std::vector<HWND> edits;
    for (const auto& box : m_boxes) edits.push_back(box->edit());
    return edits;
}

void CFilterHeader::onBoxCommand(UINT id, UINT code) {
    const std::size_t box = id - kFirstBoxId;
    if (box < m_boxes.size()) m_boxes[box]->onNotification(code);
}

bool CFilterHeader::dialogKey(HWND focus, UINT key) {
    const auto box = std::find_if(m_boxes.begin(), m_boxes.end(),
                                  [focus](const auto& each) { return each->edit() == focus; });
    return box != m_boxes.end() && (*box)->key(key);
}

// ---- Drawing ----

// Each item fills its own ground right before its caption, so that nothing flashes.
void CFilterHeader::onPaint() {
    const fw::PaintScope paint(handle());
    const HDC dc = paint.dc();
    const fw::SelectScope select(dc, m_font);
    SetBkMode(dc, TRANSPARENT);
    RECT client = clientRect(), rest = client;
    for (int item = 0; item < control().count(); ++item) {
        drawItem(dc, item);
        rest.left = control().rect(item).right;
    }
    FillRect(dc, &rest, GetSysColorBrush(COLOR_BTNFACE));
    DrawEdge(dc, &client, BDR_SUNKENOUTER, BF_BOTTOM);
}

// The images are made for 96 dots per inch; an image list draws them in no other size.
void CFilterHeader::drawImage(HDC dc, int image, POINT captionAt) const {
    int width = 0, height = 0;
    ImageList_GetIconSize(m_glyphs, &width, &height);
    const int x = static_cast<int>(captionAt.x);
    const int y = static_cast<int>(captionAt.y) + (m_captionHeight - scaled(height)) / 2;
    if (scaled(height) == height) {
        ImageList_Draw(m_glyphs, image, dc, x, y, ILD_TRANSPARENT);
        return;
    }
    const HICON icon = ImageList_GetIcon(m_glyphs, image, ILD_TRANSPARENT);
    DrawIconEx(dc, x, y, icon, scaled(width), scaled(height), 0, nullptr, DI_NORMAL);
    DestroyIcon(icon);
}

void CFilterHeader::drawItem(HDC dc, int item) const {
    const fw::Header::Item shown = control().item(item);
    const RECT rect = control().rect(item);
    if (RectVisible(dc, &rect) == 0) return;
    const bool filtered = !filter(item).text.empty();
    const auto [ground, ink] = captionColors(filtered);
    fw::fill(dc, rect, ground);
    RECT edge{rect.right - 2, rect.top + 2, rect.right, rect.bottom - 2};
    DrawEdge(dc, &edge, EDGE_ETCHED, BF_RIGHT);

    RECT words{rect.left + scaled(6), rect.top, rect.right - scaled(6), rect.top + m_captionHeight};
    if ((shown.format & HDF_IMAGE) != 0) {
        words.right -= scaled(13);
        drawImage(dc, shown.image, {words.right + scaled(3), rect.top});
    }
    static constexpr UINT alignments[] = {DT_LEFT, DT_RIGHT, DT_CENTER};
    SetTextColor(dc, ink);
    DrawTextA(dc, shown.caption.c_str(), -1, &words,
              alignments[(shown.format & HDF_JUSTIFYMASK) % 3] | DT_SINGLELINE | DT_VCENTER |
                  DT_END_ELLIPSIS | DT_NOPREFIX);
}

}  // namespace mc
