// What a list is to programs that read the screen: the platform's own object for the control, with
// rows that say what the list's owner says of them. Rows are the children from 1 on.
//
// Order of life: answer() for each WM_GETOBJECT; close() when the window goes. Those who hold the
// object longer find it empty.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>

namespace fw {

// Asked for one row at a time, on the window's thread.
class AccessibleRows {
public:
    virtual std::size_t rowCount() const = 0;
    virtual std::optional<std::size_t> focusedRow() const = 0;
    virtual std::string listName() const = 0;
    virtual std::string rowName(std::size_t row) const = 0;
    virtual LONG rowState(std::size_t row) const = 0;  // STATE_SYSTEM_ bits
    virtual RECT rowRect(std::size_t row) const = 0;   // on the screen

protected:
    ~AccessibleRows() = default;
};

class CAccessibleList {
public:
    explicit CAccessibleList(const AccessibleRows& rows) : m_rows(rows) {}
    ~CAccessibleList() { close(); }
    CAccessibleList(const CAccessibleList&) = delete;
    CAccessibleList& operator=(const CAccessibleList&) = delete;

    // The result of WM_GETOBJECT for OBJID_CLIENT; 0 when there is no object, and the control's own
    // answer is as good.
    LRESULT answer(HWND list, WPARAM wParam);
    void close();

private:
    class Object;

    const AccessibleRows& m_rows;
    Object* m_object = nullptr;  // counts its holders, this one among them
};

}  // namespace fw
