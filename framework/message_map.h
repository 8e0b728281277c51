// Message maps: what a window class answers, as one constant table.
//
//   const fw::MessageMap& CPane::messageMap() const {
//       static constexpr fw::MessageEntry entries[] = {
//           fw::on<WM_SIZE, &CPane::onSize>(),
//           fw::onCommand<IDOK, &CPane::onAccept>(),
//           fw::onNotify<4000, NM_DBLCLK, &CPane::onDoubleClick>(),
//       };
//       static constexpr fw::MessageMap map{nullptr, entries};
//       return map;
//   }
//
// An entry cracks its message: the handler takes typed arguments (the table below says which), and
// the compiler checks them. A handler that returns nothing answers 0; one that returns LRESULT
// answers that. observe<> runs the handler and goes on to the base map and the default handling.
//
// A window that is made of parts names the part in front of the part's handler:
//
//   fw::on<WM_CHAR, &CList::m_input, &CListInput::onCharacter>()
//
// Any handler may take nothing.
#pragma once

#include <windows.h>
#include <windowsx.h>

#include <commctrl.h>

#include <span>
#include <type_traits>
#include <utility>

namespace fw {

class CWindow;

inline constexpr UINT kAnyCode = 0xFFFFFFFF;
inline constexpr UINT kAnyId = 0xFFFFFFFF;

// A notification is handed back to the control that sent it, by CWindow::reflectNotify.
// wParam, lParam and result are those of WM_NOTIFY. Controls that are no CWindow answer 0.
inline constexpr UINT kReflectedNotify = WM_APP + 0x1C4E;

// A window posts it to itself to open one of its menus (postMenu in framework/dialog.h).
inline constexpr UINT kOpenMenu = WM_APP + 0x1C60;

struct MessageEntry {
    UINT message;
    UINT id;    // commands and notifications: the command or control id, or kAnyId
    UINT code;  // commands and notifications: the notification code, or kAnyCode
    // Cracks the message and calls the handler. False: the message goes on to the default.
    bool (*call)(CWindow& target, WPARAM wParam, LPARAM lParam, LRESULT& result);
};

struct MessageMap {
    const MessageMap* base;  // asked when no entry here takes the message; null at the root
    std::span<const MessageEntry> entries;
};

// Which arguments the handler of a message takes. Messages without a line here take none.
template <UINT message>
struct Crack {
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM) {
        return handler();
    }
};

struct CrackPoint {  // (POINT client)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(POINT{GET_X_LPARAM(l), GET_Y_LPARAM(l)});
    }
};
struct CrackHitPoint {  // (UINT hit, POINT screen)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM l) {
        return handler(static_cast<UINT>(w), POINT{GET_X_LPARAM(l), GET_Y_LPARAM(l)});
    }
};

template <>
struct Crack<WM_MOUSEMOVE> : CrackPoint {};
template <>
struct Crack<WM_LBUTTONDOWN> : CrackPoint {};
template <>
struct Crack<WM_LBUTTONUP> : CrackPoint {};
template <>
struct Crack<WM_LBUTTONDBLCLK> : CrackPoint {};
template <>
struct Crack<WM_NCHITTEST> : CrackPoint {};  // screen
template <>
struct Crack<WM_NCLBUTTONDOWN> : CrackHitPoint {};
template <>
struct Crack<WM_NCLBUTTONDBLCLK> : CrackHitPoint {};
template <>
struct Crack<WM_NCRBUTTONUP> : CrackHitPoint {};
template <>
struct Crack<kOpenMenu> : CrackHitPoint {};  // (UINT which, POINT screen)
template <>
struct Crack<WM_SIZE> {  // (int width, int height) of the client area
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(static_cast<int>(LOWORD(l)), static_cast<int>(HIWORD(l)));
    }
};
template <>
struct Crack<WM_ERASEBKGND> {  // (HDC)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM) {
        return handler(reinterpret_cast<HDC>(w));
    }
};
template <>
struct Crack<WM_SETCURSOR> {  // (HWND under, UINT hit)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM l) {
        return handler(reinterpret_cast<HWND>(w), static_cast<UINT>(LOWORD(l)));
    }
};
template <>
struct Crack<WM_NCCALCSIZE> {  // (RECT& window rectangle in, client rectangle out)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        // NCCALCSIZE_PARAMS begins with that same rectangle.
        return handler(*reinterpret_cast<RECT*>(l));
    }
};
template <>
struct Crack<WM_GETMINMAXINFO> {  // (MINMAXINFO&)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(*reinterpret_cast<MINMAXINFO*>(l));
    }
};
template <>
struct Crack<WM_DRAWITEM> {  // (const DRAWITEMSTRUCT&)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
    }
};
template <>
struct Crack<WM_MEASUREITEM> {  // (MEASUREITEMSTRUCT&)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(*reinterpret_cast<MEASUREITEMSTRUCT*>(l));
    }
};
template <>
struct Crack<WM_RBUTTONDOWN> : CrackPoint {};
template <>
struct Crack<WM_RBUTTONDBLCLK> : CrackPoint {};
template <>
struct Crack<WM_RBUTTONUP> : CrackPoint {};
template <>
struct Crack<WM_KEYDOWN> {  // (UINT key, bool repeated)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM l) {
        return handler(static_cast<UINT>(w), (HIWORD(l) & KF_REPEAT) != 0);
    }
};
template <>
struct Crack<WM_SYSKEYDOWN> : Crack<WM_KEYDOWN> {};
template <>
struct Crack<WM_KEYUP> : Crack<WM_KEYDOWN> {};
template <>
struct Crack<WM_CONTEXTMENU> {  // (POINT screen): (-1, -1) by key
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(POINT{GET_X_LPARAM(l), GET_Y_LPARAM(l)});
    }
};
template <>
struct Crack<WM_GETOBJECT> {  // (WPARAM flags, LPARAM object)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM l) {
        return handler(w, l);
    }
};
template <>
struct Crack<WM_ACTIVATE> {  // (bool active)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM) {
        return handler(LOWORD(w) != WA_INACTIVE);
    }
};
template <>
struct Crack<WM_DPICHANGED> {  // (const RECT& suggested)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(*reinterpret_cast<const RECT*>(l));
    }
};
template <>
struct Crack<WM_SETTINGCHANGE> {  // (WPARAM what, LPARAM section)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM l) {
        return handler(w, l);
    }
};
template <>
struct Crack<WM_TIMER> {  // (UINT_PTR id)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM) {
        return handler(UINT_PTR{w});
    }
};
template <>
struct Crack<WM_CHAR> {  // (UINT character)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM) {
        return handler(static_cast<UINT>(w));
    }
};
template <>
struct Crack<WM_GETDLGCODE> {  // (const MSG* asked for, or null)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(reinterpret_cast<const MSG*>(l));
    }
};

namespace detail {

template <class Member>
struct MemberOf;
template <class Class, class Result, class... Arguments>
struct MemberOf<Result (Class::*)(Arguments...)> {
    using Target = Class;
};
template <class Class, class Result, class... Arguments>
struct MemberOf<Result (Class::*)(Arguments...) const> {
    using Target = Class;
};
template <class Class, class Part>
struct MemberOf<Part Class::*> {
    using Target = Class;
};

// Calls a handler with what was cracked, or without it where the handler takes nothing.
template <class Target, class Handler, class... Arguments>
decltype(auto) invoke(Target& target, Handler handler, Arguments&&... arguments) {
    if constexpr (std::is_invocable_v<Handler, Target&>)
        return (target.*handler)();
    else
        return (target.*handler)(std::forward<Arguments>(arguments)...);
}

// The notification structure that a WM_NOTIFY handler takes; of a part's handler it is the last.
template <class Class, class Result, class Header>
Header headerOf(Result (Class::*)(Header&));
template <class Class, class Result>
NMHDR& headerOf(Result (Class::*)());
template <class Class, class Part, class Handler>
auto headerOf(Part Class::*, Handler handler) -> decltype(headerOf(handler));

template <auto handler>
auto bind(CWindow& window) {
    using Target = typename MemberOf<decltype(handler)>::Target;
    return [&target = static_cast<Target&>(window)]<class... Arguments>(
               Arguments&&... arguments) -> decltype(auto) {
        return invoke(target, handler, std::forward<Arguments>(arguments)...);
    };
}
template <auto part, auto handler>
auto bind(CWindow& window) {
    using Target = typename MemberOf<decltype(part)>::Target;
    return [&target = static_cast<Target&>(window).*
                      part]<class... Arguments>(Arguments&&... arguments) -> decltype(auto) {
        return invoke(target, handler, std::forward<Arguments>(arguments)...);
    };
}

template <class Call>
bool answer(Call call, LRESULT& result) {
    if constexpr (std::is_void_v<decltype(call())>) {
        call();
        result = 0;
    } else {
        result = call();
    }
    return true;
}

}  // namespace detail

template <UINT message, auto... handler>
constexpr MessageEntry on() {
    return {message, 0, kAnyCode, [](CWindow& window, WPARAM w, LPARAM l, LRESULT& result) {
                return detail::answer(
                    [&]() -> decltype(auto) {
                        return Crack<message>::with(detail::bind<handler...>(window), w, l);
                    },
                    result);
            }};
}

template <UINT message, auto... handler>
constexpr MessageEntry observe() {
    return {message, 0, kAnyCode, [](CWindow& window, WPARAM w, LPARAM l, LRESULT&) {
                Crack<message>::with(detail::bind<handler...>(window), w, l);
                return false;
            }};
}

// As on<>, but the handler's bool says whether the message was its own; false goes on to the
// default.
template <UINT message, auto... handler>
constexpr MessageEntry offer() {
    return {message, 0, kAnyCode, [](CWindow& window, WPARAM w, LPARAM l, LRESULT& result) {
                result = 0;
                const bool taken = Crack<message>::with(detail::bind<handler...>(window), w, l);
                return taken;
            }};
}

// A menu command, an accelerator or a pressed button: handler(). With a code, that notification of
// a control only.
template <UINT id, auto handler, UINT code = kAnyCode>
constexpr MessageEntry onCommand() {
    return {WM_COMMAND, id, code, [](CWindow& window, WPARAM, LPARAM, LRESULT& result) {
                return detail::answer(
                    [&]() -> decltype(auto) { return detail::bind<handler>(window)(); }, result);
            }};
}

template <UINT id, UINT code, auto part, auto handler>
constexpr MessageEntry onCommand() {
    return {WM_COMMAND, id, code, [](CWindow& window, WPARAM, LPARAM, LRESULT& result) {
                return detail::answer(
                    [&]() -> decltype(auto) { return detail::bind<part, handler>(window)(); },
                    result);
            }};
}

// Any command of any child: handler(UINT id, UINT code).
template <auto... handler>
constexpr MessageEntry onAnyCommand() {
    return {WM_COMMAND, kAnyId, kAnyCode, [](CWindow& window, WPARAM w, LPARAM, LRESULT& result) {
                return detail::answer(
                    [&]() -> decltype(auto) {
                        return detail::bind<handler...>(window)(static_cast<UINT>(LOWORD(w)),
                                                                static_cast<UINT>(HIWORD(w)));
                    },
                    result);
            }};
}

namespace detail {

template <auto... handler>
bool answerNotice(CWindow& window, WPARAM, LPARAM l, LRESULT& result) {
    using Header = std::remove_reference_t<decltype(headerOf(handler...))>;
    return answer(
        [&]() -> decltype(auto) { return bind<handler...>(window)(*reinterpret_cast<Header*>(l)); },
        result);
}

}  // namespace detail

// A notification of a common control: handler(Header&), Header being NMHDR or what begins with one.
template <UINT id, UINT code, auto... handler>
constexpr MessageEntry onNotify() {
    return {WM_NOTIFY, id, code, detail::answerNotice<handler...>};
}

// A control's own notification, handed back to it: handler(Header&).
template <UINT code, auto... handler>
constexpr MessageEntry onReflected() {
    return {kReflectedNotify, kAnyId, code, detail::answerNotice<handler...>};
}

// Runs the handler that `map`, or a map it is based on, has for the message. False when there is
// none, or when all that ran only observe.
bool dispatch(const MessageMap& map, CWindow& target, UINT message, WPARAM wParam, LPARAM lParam,
              LRESULT& result);

}  // namespace fw
