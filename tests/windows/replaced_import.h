// What the plug-in calls of the system by a name is another function for a scope.
#pragma once

#include <windows.h>

#include <string_view>
#include <utility>

class ReplacedImport {
public:
    template <class Function>
    ReplacedImport(const char* name, Function* instead) : m_slot(find(name)) {
        if (m_slot != nullptr)
            m_before = put(reinterpret_cast<FARPROC>(reinterpret_cast<void*>(instead)));
    }
    ~ReplacedImport() {
        if (m_slot != nullptr) put(m_before);
    }
    ReplacedImport(const ReplacedImport&) = delete;
    ReplacedImport& operator=(const ReplacedImport&) = delete;

    bool found() const { return m_slot != nullptr; }
    FARPROC before() const { return m_before; }

private:
    static FARPROC* find(const char* name) {
        auto* const base = reinterpret_cast<BYTE*>(GetModuleHandleA("MakerChecker.dll"));
        const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
        const auto* pe = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
        const auto& table = pe->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
        const auto* library =
            reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + table.VirtualAddress);
        for (; library->Name != 0; ++library) {
            const auto* names =
                reinterpret_cast<const ULONG_PTR*>(base + library->OriginalFirstThunk);
            auto* slots = reinterpret_cast<FARPROC*>(base + library->FirstThunk);
            for (; *names != 0; ++names, ++slots)
                if (std::string_view(reinterpret_cast<const char*>(base + *names + 2)) == name)
                    return slots;
        }
        return nullptr;
    }
    FARPROC put(FARPROC function) const {
        DWORD protection = 0;
        VirtualProtect(m_slot, sizeof *m_slot, PAGE_READWRITE, &protection);
        return std::exchange(*m_slot, function);
    }
    FARPROC* const m_slot;
    FARPROC m_before = nullptr;
};
