#include "tests/windows/test_host.h"

#include <shlobj.h>

#include <gtest/gtest.h>

#include "console/model/owned_message.h"
#include "res/resource_ids.h"
#include "sdk/connectvosk.h"
#include "sdk/host_services.h"
#include "sdk/host_text.h"

namespace {

Fields readAll(void* message) {
    Fields fields;
    for (const zek::Field& field : zek::readFields(message))
        for (const auto& text : field.occurrences)
            fields.emplace_back(field.id, text.value_or("<unreadable>"));
    return fields;
}

zek::OwnedMessage makeMessage(const Fields& fields) {
    zek::OwnedMessage message;
    for (const auto& [id, text] : fields) message.add(id, text);
    return message;
}

class TestControl final : public CQuonRxControl {
public:
    int send(int& requestId, void* message, int, void**) override {
        if (!host().sends) return 0;
        host().sent.push_back(readAll(message));
        requestId = static_cast<int>(host().sent.size());
        return 1;
    }
    int subscribe(int& subscriptionId, const int* mnemonics, const char* const* values, int pairs,
                  CQuonRxControl*, int, int, int, void**) override {
        Fields subscription;
        for (int i = 0; i < pairs; ++i) subscription.emplace_back(mnemonics[i], values[i]);
        host().subscriptions.push_back(subscription);
        subscriptionId = static_cast<int>(host().subscriptions.size());
        return 1;
    }
    int unsubscribe(int) override {
        ++host().unsubscribed;
        return 1;
    }
};

}  // namespace

HostState& host() {
    static HostState state;
    return state;
}

#define HOST_EXPORT extern "C" __declspec(dllexport)

HOST_EXPORT void pu_get_peer_data(HostString& brokerId, HostString& second, HostString& userId) {
    sdk::assign(brokerId, host().broker);
    sdk::assign(second, "second");
    sdk::assign(userId, host().user);
}
HOST_EXPORT void pu_get_user_privilige(HostString& text, int& level) {
    sdk::assign(text, "privilege");
    level = host().level;
}
HOST_EXPORT void pu_add_to_tabbed_log(HostString line) {
    host().log.push_back(sdk::take(line));
    std::exchange(host().inLog, [] {})();
}
HOST_EXPORT int pu_get_find_menu_item_in_roles(int menuItem) {
    std::exchange(host().inRoles, [] {})();
    return static_cast<int>(host().menuItems.count(menuItem));
}
HOST_EXPORT int pu_get_maker_checker_Modify_Right() {
    return host().mayModify ? 1 : 0;
}
HOST_EXPORT int pu_is_function_restricted(int functionCode) {
    return static_cast<int>(host().restricted.count(functionCode));
}
HOST_EXPORT CQuonRxControl* GetQuonRxControl(int kind, CQuonRxNotifierBase* receiver,
                                             CQuonRxControl* release) {
    if (receiver == nullptr) {
        EXPECT_EQ(host().controls.erase(release), 1u) << "released twice, or never created";
        delete static_cast<TestControl*>(release);
        return nullptr;
    }
    if (kind == 0) host().receiver = receiver;
    return *host().controls.insert(new TestControl).first;
}

HiddenExport::HiddenExport(const char* name) {
    auto* base = reinterpret_cast<char*>(GetModuleHandleA(nullptr));
    auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
    auto* nt = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    auto* exports = reinterpret_cast<IMAGE_EXPORT_DIRECTORY*>(base + directory.VirtualAddress);
    auto* names = reinterpret_cast<DWORD*>(base + exports->AddressOfNames);
    for (DWORD i = 0; i < exports->NumberOfNames; ++i)
        if (std::string(base + names[i]) == name) m_name = base + names[i];
    if (m_name == nullptr) return;
    m_last = m_name[std::string(m_name).size() - 1];
    // The names stay in order: the changed letter still sorts between its neighbours.
    setLast('~');
}

HiddenExport::~HiddenExport() {
    if (m_name != nullptr) setLast(m_last);
}

void HiddenExport::setLast(char letter) {
    char* last = m_name + std::string(m_name).size() - 1;
    DWORD before = 0;
    VirtualProtect(last, 1, PAGE_READWRITE, &before);
    *last = letter;
    VirtualProtect(last, 1, before, &before);
}

namespace {

// The plug-in beside this program, or the one that MC_PLUGIN names.
const char* pluginFile() {
    const char* named = std::getenv("MC_PLUGIN");
    return named != nullptr ? named : "MakerChecker.dll";
}

}  // namespace

LoadedPlugin::LoadedPlugin()
    : m_module(LoadLibraryA(pluginFile())),
      m_init(entry<InitVoskPluginEntry>("InitVoskPlugin")),
      m_hotKey(entry<PluginProcessHotKeyEntry>("PluginProcessHotKey")),
      m_publish(entry<HandlePublishMsgEntry>("HandlePublishMsg")),
      m_exit(entry<ExitVoskPluginEntry>("ExitVoskPlugin")) {
    if (m_module == nullptr || m_init == nullptr || m_hotKey == nullptr || m_publish == nullptr ||
        m_exit == nullptr) {
        ADD_FAILURE() << "MakerChecker.dll or an entry point is missing";
        std::abort();
    }
}

LoadedPlugin::~LoadedPlugin() {
    if (m_module == nullptr) return;
    m_exit();
    pump();
    free();
}

void LoadedPlugin::free() {
    FreeLibrary(std::exchange(m_module, nullptr));
}

void LoadedPlugin::init() {
    m_init(nullptr, "text", 0, sdk::makeHostString("owned"));
}

void LoadedPlugin::publish(const Fields& fields) {
    m_publish(makeMessage(fields).handle());
}

MainFrame::MainFrame(bool docks) {
    static const fw::WindowClass windowClass{"Test.MainFrame", 0, IDC_ARROW, COLOR_APPWORKSPACE};
    create(windowClass, "Test host", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 0,
           RECT{20, 20, 1220, 820}, nullptr, 0);
    if (docks) m_site = std::make_unique<fw::CDockingSite>(handle(), [this] { layOut(); });
    layOut();
    SetForegroundWindow(handle());
}

const fw::MessageMap& MainFrame::messageMap() const {
    static constexpr fw::MessageMap map{nullptr, {}};
    return map;
}

LRESULT MainFrame::defaultProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (m_site != nullptr && m_site->handle(message, wParam, lParam, result)) return result;
    if (message == WM_SIZE) layOut();
    if (message == WM_CONTEXTMENU) ++host().contextMenus;
    if (message == WM_DPICHANGED) {
        const RECT& to = *reinterpret_cast<const RECT*>(lParam);
        SetWindowPos(handle(), nullptr, to.left, to.top, fw::widthOf(to), fw::heightOf(to),
                     SWP_NOZORDER | SWP_NOACTIVATE);
        layOut();
        return 0;
    }
    return CWindow::defaultProc(message, wParam, lParam);
}

void MainFrame::layOut() {
    const RECT client = clientRect();
    const fw::Rect room{0, 0, static_cast<int>(client.right), static_cast<int>(client.bottom)};
    m_inner = m_site != nullptr ? m_site->layOut(room) : room;
}

namespace {
DialogTrap* theTrap = nullptr;
}

DialogTrap::DialogTrap(std::function<void(HWND)> answer)
    : m_answer(std::move(answer)),
      m_hook(SetWindowsHookExA(WH_CBT, hookProc, nullptr, GetCurrentThreadId())) {
    theTrap = this;
}

DialogTrap::~DialogTrap() {
    UnhookWindowsHookEx(m_hook);
    theTrap = nullptr;
}

namespace {

// The text of a message box or dialog; an icon is a static control too, without one.
std::string staticText(HWND dialog) {
    std::string text(70000, '\0');
    HWND label = nullptr;
    int length = 0;
    while (length == 0 && (label = FindWindowExA(dialog, label, "Static", nullptr)) != nullptr)
        length = GetWindowTextA(label, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

}  // namespace

LRESULT CALLBACK DialogTrap::hookProc(int code, WPARAM wParam, LPARAM lParam) {
    const HWND window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && theTrap != nullptr && classOf(window) == "#32770" &&
        GetPropA(window, "trapped") == nullptr) {
        SetPropA(window, "trapped", window);
        theTrap->texts.push_back(staticText(window));
        if (theTrap->m_answer) theTrap->m_answer(window);
        PostMessageA(window, WM_COMMAND, static_cast<WPARAM>(theTrap->pressed), 0);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

StoredSetting::StoredSetting(const char* section, const char* key, const char* text)
    : m_section(section), m_key(key) {
    char folder[MAX_PATH]{};
    SHGetSpecialFolderPathA(nullptr, folder, CSIDL_APPDATA, TRUE);
    std::string path = std::string(folder) + "\\Ostravine";
    CreateDirectoryA(path.c_str(), nullptr);
    CreateDirectoryA((path += "\\VoskTrader").c_str(), nullptr);
    m_file = path + "\\UserSetting.ini";
    WritePrivateProfileStringA(section, key, text, m_file.c_str());
}

StoredSetting::~StoredSetting() {
    hold(false);
    WritePrivateProfileStringA(m_section.c_str(), m_key.c_str(), nullptr, m_file.c_str());
}

std::string StoredSetting::text() const {
    char text[4096]{};
    GetPrivateProfileStringA(m_section.c_str(), m_key.c_str(), "", text, sizeof text,
                             m_file.c_str());
    return text;
}

void StoredSetting::hold(bool on) {
    if (m_held != INVALID_HANDLE_VALUE) CloseHandle(m_held);
    m_held = on ? CreateFileA(m_file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                              0, nullptr)
                : INVALID_HANDLE_VALUE;
}

void dispatch(MSG& message) {
    if (host().accelerators != nullptr &&
        TranslateAcceleratorA(GetAncestor(message.hwnd, GA_ROOT), host().accelerators, &message)) {
        ++host().accelerated;
        return;
    }
    TranslateMessage(&message);
    DispatchMessageA(&message);
}

void pump() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) dispatch(message);
}

bool pumpUntil(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + 10000;
    while (GetTickCount64() < end) {
        pump();
        if (condition()) return true;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    }
    return false;
}

// The first window below `parent`, or of this thread, of which `fits` is true.
HWND findWindow(HWND parent, const std::function<bool(HWND)>& fits) {
    struct Search {
        const std::function<bool(HWND)>& fits;
        HWND found = nullptr;
    } search{fits};
    const auto look = [](HWND window, LPARAM into) -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(into);
        if (wanted.found == nullptr && wanted.fits(window)) wanted.found = window;
        return wanted.found == nullptr;
    };
    if (parent != nullptr)
        EnumChildWindows(parent, look, reinterpret_cast<LPARAM>(&search));
    else
        EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND findPane() {
    const auto isPane = [](HWND window) {
        return textOf(window) == "Maker Checker" && classOf(window) == "#32770";
    };
    HWND pane = nullptr;
    findWindow(nullptr, [&](HWND top) { return (pane = findWindow(top, isPane)) != nullptr; });
    return pane;
}

HWND descendant(HWND parent, const char* windowClass, int id) {
    return findWindow(parent, [&](HWND window) {
        return GetDlgCtrlID(window) == id && classOf(window) == windowClass;
    });
}

HWND button(const char* text) {
    return FindWindowExA(findPane(), nullptr, "Button", text);
}

HWND mainList() {
    return descendant(findPane(), WC_LISTVIEWA, IDC_MAIN_LIST);
}

HWND details() {
    return descendant(findPane(), WC_LISTVIEWA, IDC_DETAILS_LIST);
}

HWND bar() {
    return descendant(findPane(), "MakerChecker.SplitterBar", 0);
}

HWND header(HWND list) {
    return reinterpret_cast<HWND>(SendMessageA(list, LVM_GETHEADER, 0, 0));
}

RECT headerItem(int item, HWND list) {
    RECT place{};
    SendMessageA(header(list), HDM_GETITEMRECT, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&place));
    return place;
}

POINT captionPoint(int item, HWND list, int fromRight) {
    const RECT place = headerItem(item, list);
    POINT at{place.right - fromRight, place.top + 6};
    ClientToScreen(header(list), &at);
    return at;
}

HWND filterBox(int item, HWND list) {
    return GetDlgItem(header(list), 5000 + item);
}

HWND filterEdit(int item, HWND list) {
    return FindWindowExA(filterBox(item, list), nullptr, "Edit", nullptr);
}

HWND editor() {
    const HWND open = FindWindowExA(details(), nullptr, "MakerChecker.CellEditor", nullptr);
    if (open == nullptr || IsWindowVisible(open) == 0) return nullptr;
    HWND control = GetWindow(open, GW_CHILD);
    while (IsWindow(control) != 0 && IsWindowVisible(control) == 0)  // its label
        control = GetWindow(control, GW_HWNDNEXT);
    return control;
}

std::string classOf(HWND window) {
    char name[64]{};
    GetClassNameA(window, name, sizeof name);
    return name;
}

RECT onScreen(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

RECT inParent(HWND window) {
    RECT place = onScreen(window);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

std::vector<std::string> captions(HWND list) {
    std::vector<std::string> texts;
    const auto count = SendMessageA(header(list), HDM_GETITEMCOUNT, 0, 0);
    for (WPARAM item = 0; static_cast<LRESULT>(item) < count; ++item) {
        char text[256]{};
        HDITEMA info{};
        info.mask = HDI_TEXT;
        info.pszText = text;
        info.cchTextMax = sizeof text;
        SendMessageA(header(list), HDM_GETITEMA, item, reinterpret_cast<LPARAM>(&info));
        texts.emplace_back(text);
    }
    return texts;
}

std::vector<std::string> column(int column) {
    std::vector<std::string> texts;
    for (int row = 0; row < rowCount(mainList()); ++row)
        texts.push_back(rowTexts(mainList(), row, column + 1).back());
    return texts;
}

int threadWindows() {
    int count = 0;
    const auto add = [](HWND, LPARAM into) -> BOOL {
        ++*reinterpret_cast<int*>(into);
        return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&count));
    return count;
}

COLORREF pixel(HWND window, int x, int y) {
    const HDC dc = GetDC(window);
    const COLORREF color = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return color;
}

std::vector<std::string> rowTexts(HWND list, int row, int columns) {
    std::vector<std::string> texts;
    for (int column = 0; column < columns; ++column) {
        char buffer[512]{};
        LVITEMA item{};
        item.iSubItem = column;
        item.pszText = buffer;
        item.cchTextMax = sizeof buffer;
        SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
        texts.emplace_back(item.pszText);
    }
    return texts;
}

int rowCount(HWND list) {
    return static_cast<int>(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0));
}

std::vector<int> selectedRows(HWND list) {
    std::vector<int> rows;
    for (int row = -1; (row = static_cast<int>(SendMessageA(
                            list, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED))) >= 0;)
        rows.push_back(row);
    return rows;
}

void selectRows(HWND list, const std::vector<int>& rows) {
    LVITEMA item{};
    item.stateMask = LVIS_SELECTED;
    SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    item.state = LVIS_SELECTED;
    for (const int row : rows)
        SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
}

Fields pending(const std::string& key, const std::string& code, Fields more) {
    Fields fields{{54211, "auth pending"}, {51803, key}, {63713, code}};
    if (std::none_of(more.begin(), more.end(), [](const auto& f) { return f.first == 54247; }))
        more.emplace_back(54247, "MAKER1");
    fields.insert(fields.end(), more.begin(), more.end());
    return fields;
}

Fields outcome(const std::string& key, const std::string& status) {
    return {{54211, status}, {51803, key}};
}

void answer(const Fields& fields) {
    host().receiver->onMessage(0, 0, makeMessage(fields).handle(), nullptr);
    pump();
}

Fields limitsAnswer(const std::string& key, const std::string& margin) {
    return {{32767, "om_get_auth_limits_details"},
            {51803, key},
            {54001, "C1"},
            {64031, margin},
            {64031, "1200"},
            {64210, "10"},
            {64037, "yes"}};
}

std::string sentField(const Fields& message, int mnemonic) {
    for (const auto& [id, text] : message)
        if (id == mnemonic) return text;
    return "<absent>";
}

std::vector<std::string> takeSent(int mnemonic) {
    std::vector<std::string> texts;
    for (const Fields& message : std::exchange(host().sent, {}))
        texts.push_back(sentField(message, mnemonic));
    return texts;
}

OpenWorkbench::OpenWorkbench() {
    plugin.init();
    frame = std::make_unique<MainFrame>();
    plugin.hotKey();
    pump();
}
