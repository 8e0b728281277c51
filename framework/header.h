// The header of a report list, with typed calls: a handle, made where it is used.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace fw {

class Header {
public:
    struct Item {
        std::string caption;
        int format;  // HDF_ bits
        int image;
    };

    explicit Header(HWND header) noexcept : m_handle(header) {}

    HWND handle() const noexcept { return m_handle; }

    int count() const;
    Item item(int index) const;
    // In the header's client area; empty for an item that is not there.
    RECT rect(int index) const;

    // Shows an image beside the caption, or none.
    void setImage(int index, std::optional<int> image) const;

private:
    LRESULT send(UINT message, int index, void* structure) const;

    HWND m_handle;
};

}  // namespace fw
