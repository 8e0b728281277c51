#include "listctrl/common_list_ctrl.h"

#include <utility>
#include <vector>

#include "listctrl/list_messages.h"

namespace mc {
namespace {

// Every list of the process, for loading their profiles again.
std::vector<CCommonListCtrl*>& allLists() {
    static std::vector<CCommonListCtrl*> lists;
    return lists;
}

}  // namespace

CCommonListCtrl::CCommonListCtrl(ListServices& services, RecordStore& store)
    : m_content(store, [this] { PostMessageA(handle(), kInvalidFound, 0, 0); }),
      m_update(*this, store),
      m_work(*this, m_update),
      m_header(*this),
      m_appearance(*this, services, *this),
      m_painter(*this, m_content, m_header, m_appearance),
      m_cellTip(*this, m_header, m_painter),
      m_input(*this, m_content, m_header, m_update),
      m_answers(store, m_input),
      m_columns(*this, services, *this, {m_content, m_header, m_update, m_work, m_painter}),
      m_commands(*this, services, *this, {m_content, m_columns, m_appearance, m_input}),
      m_access(*this, m_content, *this) {
    allLists().push_back(this);
}

CCommonListCtrl::~CCommonListCtrl() {
    std::erase(allLists(), this);
}

bool CCommonListCtrl::create(HWND parent, UINT id, const std::string& name, std::string title) {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS | WS_CLIPCHILDREN |
                        LVS_REPORT | LVS_OWNERDATA | LVS_OWNERDRAWFIXED | LVS_SHOWSELALWAYS;
    const HWND list =
        fw::makeControl(WC_LISTVIEWA, name.c_str(), style, WS_EX_CLIENTEDGE, {}, parent, id);
    if (!subclass(list)) return false;
    const DWORD extended = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
    fw::ListView(list).setExtendedStyle(extended, extended);
    m_columns.setName(name);
    m_appearance.read(name, std::move(title));
    return true;
}

void CCommonListCtrl::setColumns(std::span<const sVoskColInfo> columns, CellReader reader,
                                 std::span<const ColumnId> mandatory, CellReader whole) {
    m_content.setWholeReader(std::move(whole));
    m_content.install(columns, std::move(reader), mandatory);
    m_columns.loadProfile();
}

void CCommonListCtrl::loadAllColumnProfiles() {
    for (CCommonListCtrl* list : allLists()) list->m_columns.loadProfile();
}

bool CCommonListCtrl::claims(UINT key) const {
    const Modifiers keys = modifiersDown();
    return isListKey(key, keys.ctrl, keys.shift, m_commands.offers());
}

void CCommonListCtrl::beforeMessage(UINT message) {
    if (!m_update.isDue(message) || m_header.isChanging()) return;
    const bool moved = m_update.run();
    m_cellTip.forget();
    m_access.announce(moved);
    if (m_updated) m_updated();
}

std::vector<NamedText> CCommonListCtrl::wholeTexts(std::size_t row, ColumnId column) const {
    return {{m_content.columns().descriptor(column).caption,
             std::string(m_content.wholeText(row, column))}};
}

// Widths are in the font, and so is the header's height.
void CCommonListCtrl::fontChanged() {
    m_input.endMarquee();
    m_painter.fontChanged();
    m_header.measure();
}

// The control does its own part first. The row at the top stays there.
void CCommonListCtrl::onDpiChanged() {
    controlDefault(WM_DPICHANGED_AFTERPARENT, 0, 0);
    followDpi();
}

void CCommonListCtrl::followDpi() {
    if (handle() == nullptr) return;
    leaveParts();
    const fw::ListView view(handle());
    const std::size_t top = view.topRow();
    m_cellTip.followDpi();
    m_header.followDpi();
    m_appearance.show();
    m_columns.followDpi();
    view.bringToTop(top);
    cellsMove();
    InvalidateRect(handle(), nullptr, TRUE);
}

void CCommonListCtrl::onPaint() {
    controlDefault(WM_PAINT, 0, 0);
    m_painter.drawEmptyText();
    m_input.drawMarquee();
}

const fw::MessageMap& CCommonListCtrl::baseMap() {
    using C = CCommonListCtrl;
    static constexpr fw::MessageEntry entries[] = {
        fw::onReflected<LVN_GETDISPINFOA, &C::m_access, &CListAccess::onGetDispInfo>(),
        fw::onReflected<LVN_COLUMNCLICK, &C::m_columns, &CListColumns::onCaptionClick>(),
        fw::onReflected<static_cast<UINT>(NM_RCLICK), &C::m_commands,
                        &CListCommands::onRightClick>(),
        fw::onNotify<0, HDN_ITEMCHANGINGA, &C::m_columns, &CListColumns::onItemChanging>(),
        fw::onNotify<0, HDN_ITEMCHANGINGW, &C::m_columns, &CListColumns::onItemChanging>(),
        fw::onNotify<0, HDN_ITEMCHANGEDA, &C::m_columns, &CListColumns::onItemChanged>(),
        fw::onNotify<0, HDN_ITEMCHANGEDW, &C::m_columns, &CListColumns::onItemChanged>(),
        fw::onNotify<0, HDN_ENDTRACKA, &C::m_columns, &CListColumns::onDividerDone>(),
        fw::onNotify<0, HDN_ENDTRACKW, &C::m_columns, &CListColumns::onDividerDone>(),
        fw::onNotify<0, HDN_DIVIDERDBLCLICKA, &C::m_columns, &CListColumns::onDividerDone>(),
        fw::onNotify<0, HDN_DIVIDERDBLCLICKW, &C::m_columns, &CListColumns::onDividerDone>(),
        fw::onNotify<0, static_cast<UINT>(NM_RCLICK), &C::m_commands,
                     &CListCommands::onHeaderRightClick>(),
        fw::on<fw::kOpenMenu, &C::m_commands, &CListCommands::onOpenMenu>(),
        fw::onAnyCommand<&C::m_commands, &CListCommands::onMenuCommand>(),
        fw::on<WM_PAINT, &C::onPaint>(),
        fw::observe<WM_SIZE, &C::m_painter, &CListPainter::onAreaChanged>(),
        fw::observe<WM_HSCROLL, &C::m_painter, &CListPainter::onAreaChanged>(),
        fw::on<WM_DRAWITEM, &C::m_painter, &CListPainter::onDrawItem>(),
        fw::on<WM_MEASUREITEM, &C::m_painter, &CListPainter::onMeasureItem>(),
        fw::on<WM_GETDLGCODE, &C::m_input, &CListInput::onGetDialogCode>(),
        fw::on<WM_LBUTTONDOWN, &C::m_input, &CListInput::onButtonDown>(),
        fw::on<WM_LBUTTONUP, &C::m_input, &CListInput::onButtonUp>(),
        fw::on<WM_LBUTTONDBLCLK, &C::m_input, &CListInput::onDoubleClick>(),
        fw::offer<WM_MOUSEMOVE, &C::m_input, &CListInput::onMouseMove>(),
        fw::observe<WM_MOUSEMOVE, &C::m_cellTip, &CCellTip::onMouseMove>(),
        fw::observe<WM_CAPTURECHANGED, &C::m_input, &CListInput::onCaptureLost>(),
        fw::offer<WM_TIMER, &C::m_input, &CListInput::onTimer>(),
        fw::offer<WM_TIMER, &C::m_work, &CListWork::onTimer>(),
        fw::on<WM_RBUTTONDOWN, &C::m_input, &CListInput::onRightDown>(),
        fw::on<WM_RBUTTONDBLCLK, &C::m_input, &CListInput::onRightDown>(),
        fw::on<WM_RBUTTONUP, &C::m_input, &CListInput::onRightUp>(),
        fw::offer<WM_KEYDOWN, &C::m_input, &CListInput::onKeyDown>(),
        fw::offer<WM_KEYDOWN, &C::m_commands, &CListCommands::onKeyDown>(),
        fw::on<WM_CHAR, &C::m_input, &CListInput::onCharacter>(),
        fw::offer<WM_KEYUP, &C::m_commands, &CListCommands::onKeyUp>(),
        fw::on<WM_CONTEXTMENU, &C::m_commands, &CListCommands::onContextMenu>(),
        fw::on<WM_GETOBJECT, &C::m_access, &CListAccess::onGetObject>(),
        fw::observe<WM_DESTROY, &C::m_access, &CListAccess::onDestroy>(),
        fw::observe<WM_SETFOCUS, &C::m_input, &CListInput::onFocusChanged>(),
        fw::observe<WM_SETFOCUS, &C::m_access, &CListAccess::onFocus>(),
        fw::observe<WM_KILLFOCUS, &C::m_input, &CListInput::onFocusChanged>(),
        fw::observe<WM_KILLFOCUS, &C::m_access, &CListAccess::onFocus>(),
        fw::observe<WM_SYSCOLORCHANGE, &C::m_appearance, &CListAppearance::showColors>(),
        fw::on<WM_DPICHANGED_AFTERPARENT, &C::onDpiChanged>(),
        fw::on<LVM_GETITEMSTATE, &C::m_answers, &CSelectionAnswers::onGetItemState>(),
        fw::on<LVM_SETITEMSTATE, &C::m_answers, &CSelectionAnswers::onSetItemState>(),
        fw::on<LVM_GETNEXTITEM, &C::m_answers, &CSelectionAnswers::onGetNextItem>(),
        fw::on<LVM_GETNEXTITEMINDEX, &C::m_answers, &CSelectionAnswers::onGetNextItemIndex>(),
        fw::on<LVM_GETSELECTEDCOUNT, &C::m_answers, &CSelectionAnswers::onGetSelectedCount>(),
        fw::on<LVM_GETSELECTIONMARK, &C::m_answers, &CSelectionAnswers::onGetSelectionMark>(),
        fw::on<LVM_SETSELECTIONMARK, &C::m_answers, &CSelectionAnswers::onSetSelectionMark>(),
        fw::on<LVM_FINDITEMA, &C::m_answers, &CSelectionAnswers::onFindItem>(),
        fw::on<LVM_FINDITEMW, &C::m_answers, &CSelectionAnswers::onFindItem>(),
        fw::on<kHeaderMoved, &C::m_columns, &CListColumns::onHeaderMoved>(),
        fw::on<kKeepWidth, &C::m_columns, &CListColumns::onKeepWidth>(),
        fw::on<kInvalidFound, &C::m_columns, &CListColumns::onInvalidExpression>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

}  // namespace mc
