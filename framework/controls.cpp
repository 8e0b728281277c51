#include "framework/controls.h"

namespace fw {
namespace {

LPARAM pointer(const void* to) {
    return reinterpret_cast<LPARAM>(to);
}

// CB_ERR and LB_ERR are -1.
std::optional<std::size_t> indexOf(LRESULT answer) {
    if (answer < 0) return std::nullopt;
    return static_cast<std::size_t>(answer);
}

}  // namespace

void Combo::add(const std::string& text) const {
    send(CB_ADDSTRING, 0, pointer(text.c_str()));
}

void Combo::clear() const {
    send(CB_RESETCONTENT);
}

std::string Combo::text(std::size_t index) const {
    const LRESULT length = send(CB_GETLBTEXTLEN, index);
    if (length < 0) return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    send(CB_GETLBTEXT, index, pointer(text.data()));
    text.pop_back();
    return text;
}

std::optional<std::size_t> Combo::find(const std::string& text) const {
    return indexOf(send(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), pointer(text.c_str())));
}

std::optional<std::size_t> Combo::findBeginning(const std::string& text) const {
    return indexOf(send(CB_FINDSTRING, static_cast<WPARAM>(-1), pointer(text.c_str())));
}

std::optional<std::size_t> Combo::selected() const {
    return indexOf(send(CB_GETCURSEL));
}

void Combo::select(std::optional<std::size_t> index) const {
    send(CB_SETCURSEL, index.value_or(static_cast<WPARAM>(-1)));
}

void Combo::setEntryHeight(int height) const {
    send(CB_SETITEMHEIGHT, 0, height);
}

void Combo::setBoxHeight(int height) const {
    send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height);
}

int Combo::entryHeight() const {
    return static_cast<int>(send(CB_GETITEMHEIGHT, 0));
}

int Combo::boxHeight() const {
    return static_cast<int>(send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
}

void Combo::setDropWidth(int width) const {
    send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width));
}

bool Combo::dropped() const {
    return send(CB_GETDROPPEDSTATE) != 0;
}

void Combo::drop(bool down) const {
    send(CB_SHOWDROPDOWN, down ? TRUE : FALSE);
}

void ListBox::add(const std::string& text, int number) const {
    const LRESULT entry = SendMessageA(m_handle, LB_ADDSTRING, 0, pointer(text.c_str()));
    SendMessageA(m_handle, LB_SETITEMDATA, static_cast<WPARAM>(entry), number);
}

std::optional<int> ListBox::selectedNumber() const {
    const auto entry = indexOf(SendMessageA(m_handle, LB_GETCURSEL, 0, 0));
    if (!entry) return std::nullopt;
    return static_cast<int>(SendMessageA(m_handle, LB_GETITEMDATA, *entry, 0));
}

void Edit::setLimit(std::size_t characters) const {
    SendMessageA(m_handle, EM_SETLIMITTEXT, characters, 0);
}

std::pair<std::size_t, std::size_t> Edit::selection() const {
    DWORD first = 0, end = 0;
    SendMessageA(m_handle, EM_GETSEL, reinterpret_cast<WPARAM>(&first), pointer(&end));
    return {first, end};
}

void Edit::select(std::size_t first, std::size_t end) const {
    SendMessageA(m_handle, EM_SETSEL, first, static_cast<LPARAM>(end));
}

void Edit::selectAll() const {
    SendMessageA(m_handle, EM_SETSEL, 0, -1);
}

void Edit::moveCaretToEnd() const {
    const int end = GetWindowTextLengthA(m_handle);
    SendMessageA(m_handle, EM_SETSEL, static_cast<WPARAM>(end), end);
    SendMessageA(m_handle, EM_SCROLLCARET, 0, 0);
}

}  // namespace fw
