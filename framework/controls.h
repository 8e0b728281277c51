// The platform's controls with typed calls. Each is a handle, made where it is used:
// Combo(item(IDC_SIZE)).select(0). An index that is not there is std::nullopt.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace fw {

// A combo box.
class Combo {
public:
    explicit Combo(HWND combo) noexcept : m_handle(combo) {}

    void add(const std::string& text) const;
    void clear() const;
    std::string text(std::size_t index) const;
    std::optional<std::size_t> find(const std::string& text) const;  // the whole text
    std::optional<std::size_t> findBeginning(const std::string& text) const;

    std::optional<std::size_t> selected() const;
    void select(std::optional<std::size_t> index) const;

    // The height of an entry, and of the box itself, in pixels.
    void setEntryHeight(int height) const;
    void setBoxHeight(int height) const;
    int entryHeight() const;
    int boxHeight() const;
    // The least width of the drop-down, in pixels.
    void setDropWidth(int width) const;

    bool dropped() const;
    void drop(bool down) const;

private:
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(m_handle, message, wParam, lParam);
    }
    HWND m_handle;
};

// A list box whose entries carry a number each.
class ListBox {
public:
    explicit ListBox(HWND list) noexcept : m_handle(list) {}

    void add(const std::string& text, int number) const;
    std::optional<int> selectedNumber() const;

private:
    HWND m_handle;
};

// An edit.
class Edit {
public:
    explicit Edit(HWND edit) noexcept : m_handle(edit) {}

    // How many characters the user may type.
    void setLimit(std::size_t characters) const;

    // From the first selected character to the one behind the last.
    std::pair<std::size_t, std::size_t> selection() const;
    // The caret is at `end`, which may come before `first`.
    void select(std::size_t first, std::size_t end) const;
    void selectAll() const;
    void moveCaretToEnd() const;

private:
    HWND m_handle;
};

}  // namespace fw
