#include "console/verify/verify.h"
#include "framework/handles.h"
#include "framework/hwnd.h"

#include <objidl.h>

#include <gdiplus.h>
#include <wincrypt.h>

namespace verify {
namespace {

struct Extent {
    DWORD process;
    RECT box;
};

BOOL CALLBACK addWindow(HWND window, LPARAM parameter) {
    auto& extent = *reinterpret_cast<Extent*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    RECT box{};
    if (process == extent.process && IsWindowVisible(window) && !IsIconic(window) &&
        GetWindowRect(window, &box))
        UnionRect(&extent.box, &extent.box, &box);
    return TRUE;
}

RECT onScreen(const RECT& box) {
    const int left = GetSystemMetrics(SM_XVIRTUALSCREEN), top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    const RECT screen{left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN),
                      top + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
    RECT seen{};
    IntersectRect(&seen, &box, &screen);
    return seen;
}

// The caller deletes it; null when there is nothing to see.
HBITMAP copyOfScreen(const RECT& box) {
    const int width = fw::widthOf(box), height = fw::heightOf(box);
    const fw::DcScope screen(nullptr);
    const HBITMAP copy = CreateCompatibleBitmap(screen.dc(), width, height);
    const HDC memory = CreateCompatibleDC(screen.dc());
    {
        const fw::SelectScope select(memory, copy);
        BitBlt(memory, 0, 0, width, height, screen.dc(), box.left, box.top, SRCCOPY | CAPTUREBLT);
    }
    DeleteDC(memory);
    return copy;
}

std::string inBase64(const BYTE* bytes, std::size_t size) {
    constexpr DWORD kForm = CRYPT_STRING_BASE64 | CRYPT_STRING_NOCRLF;
    DWORD length = 0;
    CryptBinaryToStringA(bytes, static_cast<DWORD>(size), kForm, nullptr, &length);
    std::string text(length, '\0');
    if (!CryptBinaryToStringA(bytes, static_cast<DWORD>(size), kForm, text.data(), &length))
        return {};
    text.resize(length);
    return text;
}

std::string asPng(HBITMAP bitmap) {
    constexpr CLSID kPng{0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0, 0, 0xf8, 0x1e, 0xf3, 0x2e}};
    IStream* stream = nullptr;
    if (CreateStreamOnHGlobal(nullptr, TRUE, &stream) != S_OK) return {};
    std::string text;
    HGLOBAL memory = nullptr;
    STATSTG state{};
    if (Gdiplus::Bitmap(bitmap, nullptr).Save(stream, &kPng, nullptr) == Gdiplus::Ok &&
        GetHGlobalFromStream(stream, &memory) == S_OK &&
        stream->Stat(&state, STATFLAG_NONAME) == S_OK) {
        text = inBase64(static_cast<const BYTE*>(GlobalLock(memory)), state.cbSize.LowPart);
        GlobalUnlock(memory);
    }
    stream->Release();
    return text;
}

}  // namespace

std::string pictureOf(DWORD process) {
    static const auto started = [] {
        ULONG_PTR token = 0;
        const Gdiplus::GdiplusStartupInput input;
        return Gdiplus::GdiplusStartup(&token, &input, nullptr);
    }();
    Extent extent{process, {}};
    EnumWindows(addWindow, reinterpret_cast<LPARAM>(&extent));
    const RECT seen = onScreen(extent.box);
    if (started != Gdiplus::Ok || IsRectEmpty(&seen)) return {};
    const HBITMAP copy = copyOfScreen(seen);
    const std::string text = copy != nullptr ? asPng(copy) : std::string();
    DeleteObject(copy);
    return text;
}

}  // namespace verify
