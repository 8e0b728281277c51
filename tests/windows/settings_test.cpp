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

}  // namespace
