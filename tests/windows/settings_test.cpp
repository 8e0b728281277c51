// The settings store over the platform's services, in a scratch folder instead of the user's own.
#include "settings/settings_store.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <shlobj.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "listctrl/model/columns/column_model.h"

using namespace mc;

namespace {

namespace fs = std::filesystem;

class ScratchFiles final : public CProfileFiles {
public:
    std::string applicationData() override { return root.string(); }
    fs::path root;
};

class Settings : public testing::Test {
protected:
    void SetUp() override {
        files.root = fs::temp_directory_path() / ("settings" + std::to_string(GetTickCount()));
        fs::create_directories(files.root / "Ostravine");
    }
    void TearDown() override {
        files.close();
        std::error_code ignored;
        fs::permissions(file(), fs::perms::owner_write, fs::perm_options::add, ignored);
        fs::remove_all(files.root);
    }
    fs::path file() const { return files.root / "Ostravine" / "VoskTrader" / "UserSetting.ini"; }
    void fill(const std::string& content) {
        store.GetUserSettingPath();
        std::ofstream(file(), std::ios::binary) << content;
    }
    int read(const char* key) {
        return store.AccessUserSetting(SETTING_READ, kCustomizeListsSection, key, value,
                                       store.GetUserSettingPath(), error);
    }
    int write(const char* key, std::string text) {
        return store.AccessUserSetting(SETTING_WRITE, kCustomizeListsSection, key, text,
                                       store.GetUserSettingPath(), error);
    }

    ScratchFiles files;
    CSettingsStore store{files};
    std::string value, error;
};

// Only looks: the user's own settings are not touched.
TEST_F(Settings, StandInTheUsersRoamingFolder) {
    char roaming[MAX_PATH]{};
    ASSERT_EQ(SHGetFolderPathA(nullptr, CSIDL_APPDATA, nullptr, 0, roaming), S_OK);
    const auto parent = fs::path(roaming) / "Ostravine";
    const bool hadParent = fs::exists(parent);
    EXPECT_EQ(settingsStore().GetUserSettingPath(),
              std::string(roaming) + "\\Ostravine\\VoskTrader\\\\UserSetting.ini");
    EXPECT_EQ(fs::exists(parent), hadParent) << "the parent folder is the host's to make";
}

TEST_F(Settings, TheFirstWriteCreatesFolderAndFile) {
    EXPECT_EQ(read("LIST-1"), 0);
    EXPECT_EQ(error, "Did not detect : UserSetting.ini");
    EXPECT_FALSE(fs::exists(file()));
    EXPECT_EQ(write("LIST-1", "FFFFFF,0,Arial,10"), 1);
    EXPECT_EQ(write("LIST-2", "0,FFFFFF,Arial,8"), 1);
    EXPECT_EQ(read("LIST-1"), 1);
    EXPECT_EQ(value, "FFFFFF,0,Arial,10");
    EXPECT_EQ(read("LIST-3"), 0);
    EXPECT_EQ(value, "Key not found");
    EXPECT_EQ(write("LIST-2", ""), 1);
    EXPECT_EQ(read("LIST-2"), 0);
    EXPECT_EQ(value, "");
}

TEST_F(Settings, WithoutTheParentFolderNothingIsStored) {
    fs::remove_all(files.root / "Ostravine");
    EXPECT_EQ(write("LIST-1", "x"), 0);
    EXPECT_EQ(error, "Did not detect : UserSetting.ini");
    std::string profile = "0,0,75";
    EXPECT_EQ(store.AccessColumnProfile(SETTING_WRITE, "LIST", profile), 0);
    EXPECT_EQ(store.AccessColumnProfile(SETTING_READ, "LIST", profile), 0);
    EXPECT_TRUE(fs::is_empty(files.root));
}

constexpr char kStored[] = "[LIST]\r\nCOLUMNPROFILE=0,0,75\r\n";

bool opensForWriting(const fs::path& path) {
    return std::fstream(path, std::ios::in | std::ios::out).is_open();
}

TEST_F(Settings, AFileThatCannotBeWrittenIsLeftAlone) {
    for (const bool held : {true, false}) {
        fill(kStored);
        // Held open by another program, and read-only. Root under Wine may write the latter.
        const HANDLE other = CreateFileA(file().string().c_str(), GENERIC_READ, FILE_SHARE_READ,
                                         nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(other, INVALID_HANDLE_VALUE);
        if (!held) {
            CloseHandle(other);
            ASSERT_TRUE(SetFileAttributesA(file().string().c_str(), FILE_ATTRIBUTE_READONLY));
            if (opensForWriting(file())) return;
        }
        std::string profile = "0,0,60";
        EXPECT_EQ(store.AccessColumnProfile(SETTING_WRITE, "LIST", profile), 0);
        EXPECT_EQ(store.AccessColumnProfile(SETTING_READ, "LIST", profile), 0) << "for update";
        error.clear();
        EXPECT_EQ(write("LIST-1", "x"), 0);
        EXPECT_EQ(error, "Did not detect : UserSetting.ini");
        EXPECT_EQ(fs::file_size(file()), sizeof kStored - 1);
        if (held) CloseHandle(other);
    }
}

TEST_F(Settings, ReadsWhatTheServiceGives) {
    const std::string longText(5000, 'x');
    fill("[CUSTOMIZE_LISTS]\r\nabsent=Key not found\r\nempty=\r\nlong=" + longText +
         "\r\nblanks=  a b  \r\nquoted=\"a, b\"\r\nno value\r\n=no key\r\n");
    const struct {
        const char* key;
        int result;
        std::string value;
    } cases[] = {
        {"absent", 0, "Key not found"},
        {"empty", 0, ""},
        {"long", 1, longText.substr(0, 4095)},
        {"blanks", 1, "a b"},
        {"quoted", 1, "a, b"},
        {"LONG", 1, longText.substr(0, 4095)},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(read(each.key), each.result) << each.key;
        EXPECT_EQ(value, each.value) << each.key;
    }
}

TEST_F(Settings, HugeAndBinaryFilesAreReadAndWritten) {
    std::string huge;
    while (huge.size() < 10'000'000)
        huge += "[S" + std::to_string(huge.size()) + "]\r\nk=" + std::string(200, 'v') + "\r\n";
    std::string binary(70'000, '\0');
    std::mt19937 random(7);
    for (char& byte : binary) byte = static_cast<char>(random());
    for (const std::string& content : {huge, binary, "\xFF\xFE" + binary, std::string(999, '[')}) {
        fill(content);
        EXPECT_EQ(read("LIST-1"), 0) << value;
        EXPECT_EQ(write("LIST-1", "FFFFFF,0,Arial,10"), 1);
        EXPECT_EQ(read("LIST-1"), 1);
        EXPECT_EQ(value, "FFFFFF,0,Arial,10");
    }
}

TEST_F(Settings, AColumnModelComesBackThroughTheFile) {
    constexpr sVoskColInfo columns[] = {{"Name", 75, 0, ColumnType::text},
                                        {"Key", 60, 1, ColumnType::longInteger}};
    ColumnModel model, other;
    model.install(columns);
    other.install(columns);
    ASSERT_TRUE(model.add({"Twice", " \"1\"*2", " \"Key\" * 2 "}));
    model.show(std::vector{ColumnId{2}, ColumnId{0}});
    std::string text = profileText(model.profile()), stored;
    ASSERT_EQ(store.AccessColumnProfile(SETTING_WRITE, "MAKERCHECKER", text), 1);
    ASSERT_EQ(store.AccessColumnProfile(SETTING_READ, "MAKERCHECKER", stored), 1);
    EXPECT_EQ(stored, text);
    other.apply(readProfile(stored));
    EXPECT_EQ(other.profile(), model.profile());
}

TEST_F(Settings, ABarsSizeIsCutAt31Bytes) {
    fill("");
    const std::string path = store.GetUserSettingPath();
    store.saveBarSize(path, kDialogBarSection, 5, {640, 31});
    EXPECT_EQ(store.loadBarSize(path, kDialogBarSection, 5), (BarSize{640, 31}));
    EXPECT_EQ(store.loadBarSize(path, kDialogBarSection, 6), kDefaultBarSize);
    fill("[VOSK_DIALOG_BAR_SIZE]\r\n7=0000000000000000000000000640,31000\r\n");
    EXPECT_EQ(store.loadBarSize(path, kDialogBarSection, 7), (BarSize{640, 31}));
}

}  // namespace
