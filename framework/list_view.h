// A list view in report view, with typed calls: a handle, made where it is used.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "framework/header.h"

namespace fw {

class ListView {
public:
    explicit ListView(HWND list) noexcept : m_handle(list) {}

    // ---- Columns ----

    Header header() const;
    // `alignment` is one of the LVCFMT_ values, `width` in pixels.
    void insertColumn(int index, const std::string& caption, int width, int alignment) const;
    void removeColumns() const;
    void setColumnWidth(int index, int width) const;

    // ---- Rows ----

    // How many rows a virtual list has. Neither repaints nor scrolls.
    void setRowCount(std::size_t rows) const;
    std::size_t rowCount() const;
    // Rectangles and points are in the list's client area.
    RECT rowRect(std::size_t row) const;
    std::optional<std::size_t> rowAt(POINT client) const;
    std::size_t rowsPerPage() const;
    void bringIntoView(std::size_t row) const;
    // The first visible row. Scrolls until a row is that, as far as there are rows behind it.
    std::size_t topRow() const;
    void bringToTop(std::size_t row) const;
    // By pixels, to the right and down.
    void scroll(int across, int down) const;

    // ---- Rows that the list itself keeps ----

    // Behind the others, with a text in the first column and a value of its owner's.
    void addRow(const std::string& text, LPARAM value = 0) const;
    void removeRows() const;
    std::vector<std::size_t> selectedRows() const;  // ascending
    // Selects a row beside those that are, and gives it the focus or takes it away.
    void select(std::size_t row, bool focuses) const;

    // ---- Looks ----

    void setBackground(COLORREF color) const;  // of the list and behind its texts
    void setTextColor(COLORREF color) const;
    DWORD extendedStyle() const;
    void setExtendedStyle(DWORD mask, DWORD style) const;

private:
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(m_handle, message, wParam, lParam);
    }

    HWND m_handle;
};

}  // namespace fw
