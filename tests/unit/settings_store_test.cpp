#include "settings/model/settings_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <vector>

using namespace mc;

namespace {

constexpr char kFolder[] = "C:\\Roaming\\Ostravine\\VoskTrader\\";
constexpr char kPath[] = "C:\\Roaming\\Ostravine\\VoskTrader\\\\UserSetting.ini";

// Files in memory that keep to the platform's rules, refuse what they are told to.
class FakeFiles final : public SettingsFiles {
public:
    std::string applicationData() override { return roaming; }
    void createFolder(const std::string&) override {}
    bool open(const std::string& path, const char* mode) override {
        EXPECT_FALSE(isOpen) << "opened twice";
        if (refused.count(mode) != 0 || (mode[0] == 'r' && files.count(path) == 0)) return false;
        files.insert(path);
        return isOpen = true;
    }
    void close() override {
        EXPECT_TRUE(isOpen) << "closed without being open";
        isOpen = false;
    }
    std::size_t read(const std::string& section, const std::string& key, const char* missing,
                     std::span<char> buffer, const std::string& path) override {
        const auto found = values.find({path, section, key});
        const std::string value = found != values.end() ? found->second : missing;
        const auto length = std::min(value.size(), buffer.size() - 1);
        value.copy(buffer.data(), length);
        buffer[length] = '\0';
        return length;
    }
    bool write(const std::string& section, const std::string& key, const std::string& value,
               const std::string& path) override {
        values[{path, section, key}] = value;
        return true;
    }

    std::string roaming = "C:\\Roaming";
    std::set<std::string> files;
    std::map<std::tuple<std::string, std::string, std::string>, std::string> values;
    std::set<std::string> refused;  // modes
    bool isOpen = false;
};

class SettingsStoreTest : public testing::Test {
protected:
    int access(int mode) {
        return store.AccessUserSetting(mode, "SECTION", "KEY", value, path, error);
    }
    void TearDown() override { EXPECT_FALSE(files.isOpen) << "left open"; }

    FakeFiles files;
    CSettingsStore store{files};
    std::string value = "before";
    std::string error = "untouched";
    std::string path = kPath;
};

TEST_F(SettingsStoreTest, ReadsFailWithTheValueThatSaysWhy) {
    files.files.insert(kPath);
    const std::string longest(4095, 'x');
    const struct {
        const char* what;
        std::optional<std::string> stored;
        int result;
        std::string value;
    } cases[] = {
        {"no key", std::nullopt, 0, "Key not found"},
        {"the text of no key", "Key not found", 0, "Key not found"},
        {"empty", "", 0, ""},
        {"that of a profile", "Settings not found", 1, "Settings not found"},
        {"longest", longest, 1, longest},
        {"longer", longest + "yz", 1, longest},
    };
    for (const auto& each : cases) {
        files.values.clear();
        if (each.stored) files.values[{kPath, "SECTION", "KEY"}] = *each.stored;
        value = "before";
        EXPECT_EQ(access(SETTING_READ), each.result) << each.what;
        EXPECT_EQ(value, each.value) << each.what;
        EXPECT_EQ(error, "untouched") << each.what;
    }
}

TEST_F(SettingsStoreTest, AColumnProfileStandsInTheSectionOfItsList) {
    EXPECT_EQ(store.AccessColumnProfile(SETTING_READ, "LIST", value), 0);
    EXPECT_EQ(value, "");
    value = "0,0,75";
    EXPECT_EQ(store.AccessColumnProfile(SETTING_WRITE, "LIST", value), 1);
    EXPECT_EQ((files.values[{kPath, "LIST", "COLUMNPROFILE"}]), "0,0,75");
    EXPECT_EQ(store.AccessColumnProfile(SETTING_READ, "LIST", value), 1);
    EXPECT_EQ(store.AccessColumnProfile(SETTING_READ, "OTHER", value), 0);
    EXPECT_EQ(value, "Settings not found");

    for (const auto& [text, result] : {std::pair("Settings not found", 0), {"Key not found", 1}}) {
        files.values[{kPath, "LIST", "COLUMNPROFILE"}] = text;
        EXPECT_EQ(store.AccessColumnProfile(SETTING_READ, "LIST", value), result) << text;
    }
    files.refused = {"a+"};
    EXPECT_EQ(store.AccessColumnProfile(SETTING_WRITE, "LIST", value), 0) << "tried another mode";
}

TEST_F(SettingsStoreTest, SplitterSizesAreWrittenButDoNotComeBack) {
    store.saveSplitterSize("UPPER", 240);
    EXPECT_EQ((files.values[{kPath, "HOLDER_FRAME_SPLITTER_SIZE", "UPPER"}]), "240");
    EXPECT_EQ(store.restoreSplitterSize("UPPER"), std::nullopt);
    const auto before = files.values;
    store.saveSplitterSize("", 240);
    EXPECT_EQ(files.values, before);
}

TEST(BarSizeTest, ReadsWhatItCanUse) {
    const struct {
        const char* stored;
        std::optional<BarSize> size;
    } cases[] = {
        {"", kDefaultBarSize},        {"Not Found", kDefaultBarSize},
        {"640,31", BarSize{640, 31}}, {" 640 , 31 ", BarSize{640, 31}},
        {"1,1,9", BarSize{1, 1}},     {"0,27", std::nullopt},
        {"500,0", std::nullopt},      {"500", std::nullopt},
        {"500,", std::nullopt},       {",27", std::nullopt},
        {"-5,27", std::nullopt},      {"wide,high", std::nullopt},
        {"not found", std::nullopt},  {"99999999999,-99999999999", std::nullopt},
    };
    for (const auto& each : cases) EXPECT_EQ(readBarSize(each.stored), each.size) << each.stored;
}

}  // namespace
