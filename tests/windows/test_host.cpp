#include "tests/windows/test_host.h"

#include <filesystem>

#include "console/model/owned_message.h"
#include "sdk/connectvosk.h"
#include "sdk/host_services.h"
#include "sdk/host_text.h"
#include "settings/settings_store.h"

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

std::vector<char*> exportedNames(HMODULE module) {
    auto* const base = reinterpret_cast<char*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* exports =
        reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + directory.VirtualAddress);
    const auto* offsets = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
    std::vector<char*> names;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) names.push_back(base + offsets[i]);
    return names;
}

HiddenExport::HiddenExport(const char* name) {
    for (char* const exported : exportedNames(GetModuleHandleA(nullptr)))
        if (std::string(exported) == name) m_name = exported;
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
    : m_section(section), m_key(key), m_file(mc::settingsStore().GetUserSettingPath()) {
    std::filesystem::create_directories(std::filesystem::path(m_file).parent_path());
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

Texts takeSent(int mnemonic) {
    Texts texts;
    for (const Fields& message : std::exchange(host().sent, {}))
        texts.push_back(sentField(message, mnemonic));
    return texts;
}

OpenWorkbench::OpenWorkbench(std::initializer_list<const char*> keys) {
    plugin.init();
    frame = std::make_unique<MainFrame>();
    plugin.hotKey();
    for (const char* key : keys) plugin.publish(pending(key, "340", {{31003, "U"}}));
    pump();
}

void OpenWorkbench::openLimits(const Fields& answered) {
    plugin.publish(pending("7", "360", {{54001, "C1"}}));
    hand::doubleClickRow(mainList(), rowCount(mainList()) - 1);
    answer(answered);
    host().sent.clear();
}
