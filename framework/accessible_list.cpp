#include "framework/accessible_list.h"

#include <oleacc.h>

#include <utility>

#include "framework/platform.h"

namespace fw {
namespace {

// Most sessions never need them, so they are loaded when they are first asked for; they stay.
struct Libraries {
    decltype(&::CreateStdAccessibleObject) standardObject;
    decltype(&::LresultFromObject) resultOf;
    decltype(&::SysAllocStringLen) makeText;
    decltype(&::CoInitializeEx) openCom;
    decltype(&::CoUninitialize) closeCom;
    decltype(&::CoDisconnectObject) disconnect;
};

template <class Function>
bool find(const wchar_t* library, const char* name, Function*& found) {
    wchar_t path[MAX_PATH]{};
    const UINT length = GetSystemDirectoryW(path, MAX_PATH - 16);
    if (length == 0 || length >= MAX_PATH - 16) return false;
    lstrcatW(path, library);
    const HMODULE module = LoadLibraryW(path);
    if (module == nullptr) return false;
    found = exported<Function>(module, name);
    return found != nullptr;
}

// Null when this system lacks one.
const Libraries* libraries() {
    static Libraries all{};
    static const bool complete =
        find(L"\\oleacc.dll", "CreateStdAccessibleObject", all.standardObject) &&
        find(L"\\oleacc.dll", "LresultFromObject", all.resultOf) &&
        find(L"\\oleaut32.dll", "SysAllocStringLen", all.makeText) &&
        find(L"\\ole32.dll", "CoInitializeEx", all.openCom) &&
        find(L"\\ole32.dll", "CoUninitialize", all.closeCom) &&
        find(L"\\ole32.dll", "CoDisconnectObject", all.disconnect);
    return complete ? &all : nullptr;
}

HRESULT giveText(const std::string& text, BSTR* result) {
    const auto size = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), size, nullptr, 0);
    *result = libraries()->makeText(nullptr, static_cast<UINT>(length));
    if (*result == nullptr) return E_OUTOFMEMORY;
    MultiByteToWideChar(CP_ACP, 0, text.data(), size, *result, length);
    return S_OK;
}

}  // namespace

// What it does not answer for rows itself the platform's object answers, which asks the control.
class CAccessibleList::Object final : public IAccessible {
public:
    Object(const AccessibleRows& rows, IAccessible* standard)
        : m_rows(&rows), m_standard(standard) {}

    void close() {
        m_rows = nullptr;
        libraries()->disconnect(this, 0);
        Release();
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override {
        const bool known =
            id == __uuidof(IUnknown) || id == __uuidof(IDispatch) || id == __uuidof(IAccessible);
        *found = known ? static_cast<IAccessible*>(this) : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_holders; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --m_holders;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        return m_standard->GetTypeInfoCount(count);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return m_standard->GetTypeInfo(index, locale, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override {
        return m_standard->GetIDsOfNames(id, names, count, locale, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE get_accChildCount(long* count) override {
        return answer([&] { *count = static_cast<long>(m_rows->rowCount()); });
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        std::string text;
        const HRESULT result = answer([&] {
            const auto row = rowOf(child);
            text = row ? m_rows->rowName(*row) : m_rows->listName();
        });
        return result == S_OK && isKnown(child) ? giveText(text, name) : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        return number(role, rowOf(child) ? ROLE_SYSTEM_LISTITEM : ROLE_SYSTEM_LIST);
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        const auto row = rowOf(child);
        if (!row) return m_standard->get_accState(child, state);
        LONG bits = 0;
        const HRESULT result = answer([&] { bits = m_rows->rowState(*row); });
        return result == S_OK ? number(state, bits) : result;
    }
    HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height,
                                          VARIANT child) override {
        const auto row = rowOf(child);
        if (!row) return m_standard->accLocation(left, top, width, height, child);
        return answer([&] {
            const RECT rect = m_rows->rowRect(*row);
            *left = rect.left;
            *top = rect.top;
            *width = rect.right - rect.left;
            *height = rect.bottom - rect.top;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
        child->vt = VT_EMPTY;
        return answer([&] {
            if (const auto row = m_rows->focusedRow()) number(child, static_cast<LONG>(*row) + 1);
        });
    }
    // A row has no children, and is child of the list.
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** found) override {
        *found = nullptr;
        return rowOf(child) ? S_FALSE : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
        return m_standard->get_accParent(parent);
    }

    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        return m_standard->get_accValue(child, value);
    }
    // The name says all of a row.
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* text) override {
        *text = nullptr;
        return rowOf(child) ? S_FALSE : m_standard->get_accDescription(child, text);
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override {
        return m_standard->get_accHelp(child, help);
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, long* topic) override {
        return m_standard->get_accHelpTopic(file, child, topic);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* key) override {
        return m_standard->get_accKeyboardShortcut(child, key);
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
        return m_standard->get_accSelection(children);
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
        return m_standard->get_accDefaultAction(child, action);
    }
    HRESULT STDMETHODCALLTYPE accSelect(long flags, VARIANT child) override {
        return m_standard->accSelect(flags, child);
    }
    HRESULT STDMETHODCALLTYPE accNavigate(long direction, VARIANT start, VARIANT* end) override {
        return m_standard->accNavigate(direction, start, end);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(long x, long y, VARIANT* child) override {
        return m_standard->accHitTest(x, y, child);
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
        return m_standard->accDoDefaultAction(child);
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return E_NOTIMPL; }

private:
    ~Object() { m_standard->Release(); }

    static HRESULT number(VARIANT* result, LONG value) {
        result->vt = VT_I4;
        result->lVal = value;
        return S_OK;
    }

    std::optional<std::size_t> rowOf(const VARIANT& child) const {
        if (m_rows == nullptr || child.vt != VT_I4 || child.lVal <= 0) return std::nullopt;
        const auto row = static_cast<std::size_t>(child.lVal) - 1;
        return row < m_rows->rowCount() ? std::optional(row) : std::nullopt;
    }
    bool isKnown(const VARIANT& child) const {
        return (child.vt == VT_I4 && child.lVal == CHILDID_SELF) || rowOf(child);
    }

    template <class Ask>
    HRESULT answer(Ask ask) const noexcept try {
        if (m_rows == nullptr) return CO_E_OBJNOTCONNECTED;
        ask();
        return S_OK;
    } catch (...) {
        return E_OUTOFMEMORY;
    }

    const AccessibleRows* m_rows;  // null: the list is gone
    IAccessible* const m_standard;
    ULONG m_holders = 1;
};

LRESULT CAccessibleList::answer(HWND list, WPARAM wParam) {
    const Libraries* const system = libraries();
    if (system == nullptr) return 0;
    if (m_object == nullptr) {
        if (FAILED(system->openCom(nullptr, COINIT_APARTMENTTHREADED))) return 0;
        void* standard = nullptr;
        const HRESULT made = system->standardObject(list, static_cast<LONG>(OBJID_CLIENT),
                                                    __uuidof(IAccessible), &standard);
        if (FAILED(made) || standard == nullptr) {
            system->closeCom();
            return 0;
        }
        m_object = new Object(m_rows, static_cast<IAccessible*>(standard));
    }
    return system->resultOf(__uuidof(IAccessible), wParam, m_object);
}

void CAccessibleList::close() {
    if (m_object == nullptr) return;
    std::exchange(m_object, nullptr)->close();
    libraries()->closeCom();
}

}  // namespace fw
