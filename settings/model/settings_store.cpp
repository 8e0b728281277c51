#include "settings/model/settings_store.h"

#include <algorithm>
#include <array>

#include "text/read_number.h"
#include "text/text_parts.h"

namespace mc {
namespace {

constexpr std::size_t kValueBuffer = kMaxValue + 1;
constexpr std::size_t kBarBuffer = 32;
constexpr int kSettingRestore = 2;  // AccessUserSetting does nothing for it: no size comes back
constexpr char kNoKey[] = "Key not found";
constexpr char kNoProfile[] = "Settings not found";
constexpr char kNoBar[] = "Not Found";

struct CloseAtEnd {
    SettingsFiles& files;
    ~CloseAtEnd() { files.close(); }
};

std::string notDetected(const std::string& path) {
    return "Did not detect : " + path.substr(path.find_last_of('\\') + 1);
}

}  // namespace

// Where a value is stored, and how a missing one reads.
struct CSettingsStore::Entry {
    const std::string& section;
    const std::string& key;
    const std::string& path;
    const char* missing;
    bool retries;  // a write that cannot append to the file starts a new one
};

std::string CSettingsStore::GetUserSettingPath() {
    const std::string folder = m_files.applicationData() + "\\Ostravine\\VoskTrader\\";
    m_files.createFolder(folder);
    return folder + "\\UserSetting.ini";
}

int CSettingsStore::AccessUserSetting(int mode, const std::string& section, const std::string& key,
                                      std::string& value, const std::string& path,
                                      std::string& error) {
    const Entry entry{section, key, path, kNoKey, true};
    if (mode == SETTING_WRITE) return write(entry, value, &error);
    if (mode == SETTING_READ) return read(entry, value, &error);
    return 0;
}

int CSettingsStore::AccessColumnProfile(int mode, const std::string& listName, std::string& value) {
    if (mode != SETTING_READ && mode != SETTING_WRITE) return 0;
    const std::string path = GetUserSettingPath();
    const Entry entry{listName, kColumnProfileKey, path, kNoProfile, false};
    return mode == SETTING_WRITE ? write(entry, value, nullptr) : read(entry, value, nullptr);
}

int CSettingsStore::read(const Entry& entry, std::string& value, std::string* error) {
    value.clear();
    if (!m_files.open(entry.path, "r+t")) {
        if (error != nullptr) *error = notDetected(entry.path);
        return 0;
    }
    const CloseAtEnd closing{m_files};
    std::array<char, kValueBuffer> buffer{};
    const auto length = m_files.read(entry.section, entry.key, entry.missing, buffer, entry.path);
    if (length > 0) value = buffer.data();
    return length > 0 && value != entry.missing ? 1 : 0;
}

int CSettingsStore::write(const Entry& entry, const std::string& value, std::string* error) {
    if (!m_files.open(entry.path, "a+") && !(entry.retries && m_files.open(entry.path, "w+"))) {
        if (error != nullptr) *error = notDetected(entry.path);
        return 0;
    }
    const CloseAtEnd closing{m_files};
    return m_files.write(entry.section, entry.key, value, entry.path) ? 1 : 0;
}

void CSettingsStore::saveSplitterSize(const std::string& paneKey, int pixels) {
    if (paneKey.empty()) return;
    std::string value = std::to_string(pixels), error;
    AccessUserSetting(SETTING_WRITE, kSplitterSection, paneKey, value, GetUserSettingPath(), error);
}

std::optional<int> CSettingsStore::restoreSplitterSize(const std::string& paneKey) {
    if (paneKey.empty()) return std::nullopt;
    std::string value, error;
    AccessUserSetting(kSettingRestore, kSplitterSection, paneKey, value, GetUserSettingPath(),
                      error);
    if (value.empty() || value == kNoProfile) return std::nullopt;
    return std::max(integerOf(value), 0);
}

std::string barSizeText(BarSize size) {
    return std::to_string(size.width) + "," + std::to_string(size.height);
}

std::optional<BarSize> readBarSize(std::string_view stored) {
    if (stored.empty() || stored == kNoBar) return kDefaultBarSize;
    const auto parts = splitAt(stored, ',');
    const BarSize size{integerOf(parts[0]), parts.size() > 1 ? integerOf(parts[1]) : 0};
    if (size.width < 1 || size.height < 1) return std::nullopt;
    return size;
}

void CSettingsStore::saveBarSize(const std::string& path, const std::string& section, int controlId,
                                 BarSize size) {
    if (!path.empty()) m_files.write(section, std::to_string(controlId), barSizeText(size), path);
}

std::optional<BarSize> CSettingsStore::loadBarSize(const std::string& path,
                                                   const std::string& section, int controlId) {
    if (path.empty()) return std::nullopt;
    std::array<char, kBarBuffer> buffer{};
    const auto length = m_files.read(section, std::to_string(controlId), kNoBar, buffer, path);
    return readBarSize(std::string_view(buffer.data(), length));
}

}  // namespace mc
