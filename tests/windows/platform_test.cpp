// What only the platform shows of a part by itself: the settings store over its services, in a
// scratch folder instead of the user's own, and the tone.
#include <filesystem>
#include <fstream>

#include "plugin/tone.h"
#include "settings/settings_store.h"
#include "tests/windows/test_host.h"

using namespace mc;

namespace {

namespace fs = std::filesystem;

class ScratchFiles final : public CProfileFiles {
public:
    ScratchFiles() { fs::create_directories(m_root / "Ostravine"); }
    ~ScratchFiles() override {
        close();
        fs::remove_all(m_root);
    }
    std::string applicationData() override { return m_root.string(); }
    bool open(const std::string& path, const char* mode) override {
        return mode != refused && CProfileFiles::open(path, mode);
    }
    std::string refused;  // a mode
    fs::path file() const { return m_root / "Ostravine" / "VoskTrader" / "UserSetting.ini"; }

private:
    const fs::path m_root =
        fs::temp_directory_path() / ("settings" + std::to_string(GetTickCount()));
};

struct Store : CSettingsStore {
    explicit Store(ScratchFiles& files) : CSettingsStore(files) {}
    int access(int mode, const char* key, std::string text = {}) {
        const int result =
            AccessUserSetting(mode, kCustomizeListsSection, key, text, GetUserSettingPath(), error);
        value = text;
        return result;
    }
    std::string value, error;
};

TEST(Platform, TheFirstWriteCreatesFolderAndFile) {
    ScratchFiles files;
    Store store(files);
    EXPECT_EQ(store.access(SETTING_READ, "LIST-1"), 0);
    EXPECT_EQ(store.error, "Did not detect : UserSetting.ini");
    EXPECT_FALSE(fs::exists(files.file()));
    const std::string longest(4095, 'x');
    const struct {
        std::string written;
        int result;
        std::string read;
    } cases[] = {
        {"FFFFFF,0,Arial,10", 1, "FFFFFF,0,Arial,10"},
        {"", 0, ""},
        {"Key not found", 0, "Key not found"},  // as if there were none
        {"Settings not found", 1, "Settings not found"},
        {longest, 1, longest},
        {longest + "yz", 1, longest},
    };
    for (const auto& [written, result, read] : cases) {
        EXPECT_EQ(store.access(SETTING_WRITE, "LIST-1", written), 1);
        EXPECT_EQ(store.access(SETTING_READ, "LIST-1"), result) << written;
        EXPECT_EQ(store.value, read);
    }
    EXPECT_EQ(store.access(SETTING_READ, "LIST-2"), 0);
    EXPECT_EQ(store.value, "Key not found");

    std::string text = "0,0,75";
    EXPECT_EQ(store.AccessColumnProfile(SETTING_WRITE, "LIST", text), 1);
    EXPECT_EQ(store.AccessColumnProfile(SETTING_READ, "LIST", text), 1);
    EXPECT_EQ(text, "0,0,75");
    EXPECT_EQ(store.AccessColumnProfile(SETTING_READ, "OTHER", text), 0);
    EXPECT_EQ(text, "Settings not found");
    store.saveSplitterSize("UPPER", 240);
    store.saveSplitterSize("", 250);
    EXPECT_EQ(store.restoreSplitterSize("UPPER"), std::nullopt) << "written only";
    files.refused = "a+";
    EXPECT_EQ(store.AccessColumnProfile(SETTING_WRITE, "LIST", text), 0) << "tried another mode";
    files.refused = "";
    std::ifstream file(files.file());
    const std::string stored{std::istreambuf_iterator<char>(file), {}};
    EXPECT_NE(stored.find("[LIST]\nCOLUMNPROFILE=0,0,75\n"), std::string::npos);
    EXPECT_NE(stored.find("[HOLDER_FRAME_SPLITTER_SIZE]\nUPPER=240\n"), std::string::npos);
    EXPECT_EQ(stored.find("250"), std::string::npos);
}

// Another program holds it open.
TEST(Platform, AFileThatCannotBeWrittenIsLeftAlone) {
    constexpr char kStored[] = "[LIST]\r\nCOLUMNPROFILE=0,0,75\r\n";
    ScratchFiles files;
    Store store(files);
    store.GetUserSettingPath();
    std::ofstream(files.file(), std::ios::binary) << kStored;
    const HANDLE other = CreateFileA(files.file().string().c_str(), GENERIC_READ, FILE_SHARE_READ,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    std::string profile = "0,0,60";
    EXPECT_EQ(store.AccessColumnProfile(SETTING_WRITE, "LIST", profile), 0);
    EXPECT_EQ(store.AccessColumnProfile(SETTING_READ, "LIST", profile), 0) << "for update";
    EXPECT_EQ(store.access(SETTING_WRITE, "LIST-1", "x"), 0);
    EXPECT_EQ(store.error, "Did not detect : UserSetting.ini");
    EXPECT_EQ(fs::file_size(files.file()), sizeof kStored - 1);
    CloseHandle(other);
}

// ---- The tone never makes anyone wait, and requests while it sounds are merged ----

std::atomic<int> played = 0;
HANDLE release = nullptr;

void playUntilReleased() {
    ++played;
    WaitForSingleObject(release, INFINITE);
}

TEST(Platform, TheToneIsPlayedElsewhereAndMerged) {
    release = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    {
        Tone tone(playUntilReleased);
        // Were a request to wait for the tone, the first would never return.
        for (int i = 0; i < 300; ++i) tone.request();
        while (played == 0) SwitchToThread();
        for (int i = 0; i < 300; ++i) tone.request();
        EXPECT_EQ(played, 1);
        SetEvent(release);
    }
    EXPECT_EQ(played, 1);

    Tone again(playUntilReleased);
    again.request();
    while (played == 1) SwitchToThread();
    EXPECT_EQ(played, 2);
}

}  // namespace
