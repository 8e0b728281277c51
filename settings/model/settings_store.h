// The settings store: the one file in which every display preference of a user is kept.
//
//   section                     key                       value
//   a list's name               COLUMNPROFILE             listctrl/model/columns/column_profile.h
//   CUSTOMIZE_LISTS             <list name>-<control id>  listctrl/model/columns/appearance.h
//   HOLDER_FRAME_SPLITTER_SIZE  a pane's key name         height or width
//   VOSK_DIALOG_BAR_SIZE        a bar's control id        width,height
//
// Sizes are in pixels at 96 dots per inch.
//
// The file is UserSetting.ini in Ostravine\VoskTrader under the user's roaming application data.
// Its path is built, and its folder created, on every access; the folder's parent never is, so
// where it is missing reads and writes fail and the callers' defaults stay in force.
//
// The accessors return 1 on success and 0 on failure and show nothing. Values are single-byte text
// on one line; a value longer than kMaxValue is read back cut to that. The platform takes blanks
// around a value off, and one pair of quotes. Thread: the user-interface thread.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace mc {

// The modes of AccessUserSetting and AccessColumnProfile.
inline constexpr int SETTING_READ = 0;
inline constexpr int SETTING_WRITE = 1;

inline constexpr std::size_t kMaxValue = 4095;  // bytes

inline constexpr char kColumnProfileKey[] = "COLUMNPROFILE";
inline constexpr char kCustomizeListsSection[] = "CUSTOMIZE_LISTS";
inline constexpr char kSplitterSection[] = "HOLDER_FRAME_SPLITTER_SIZE";
inline constexpr char kDialogBarSection[] = "VOSK_DIALOG_BAR_SIZE";

// The file services below the store: the platform's in settings/settings_store.h, and in the tests
// the same in a scratch folder.
class SettingsFiles {
public:
    // The roaming application-data folder, without a separator at its end; empty when unknown.
    virtual std::string applicationData() = 0;

    // Creates one folder; a failure is nobody's concern.
    virtual void createFolder(const std::string& folder) = 0;

    // Opens the file as a stream of the C library's `mode`; false when refused. Nothing is read or
    // written through it. close() follows every open() that succeeded, before the next one.
    virtual bool open(const std::string& path, const char* mode) = 0;
    virtual void close() = 0;

    // The private-profile services. `read` fills `buffer` with the value, or with `missing` where
    // there is none, cut to its size and ended by a zero byte; it returns the length.
    virtual std::size_t read(const std::string& section, const std::string& key,
                             const char* missing, std::span<char> buffer,
                             const std::string& path) = 0;
    virtual bool write(const std::string& section, const std::string& key, const std::string& value,
                       const std::string& path) = 0;

protected:
    ~SettingsFiles() = default;
};

// The size of a resizable dialog bar, in pixels at 96 dots per inch.
struct BarSize {
    int width;
    int height;
    bool operator==(const BarSize&) const = default;
};
inline constexpr BarSize kDefaultBarSize{500, 27};

// The stored form of a bar's size, and back: the default size for "Not Found" and the empty text,
// nothing (the bar keeps its size) where either side is below 1.
std::string barSizeText(BarSize size);
std::optional<BarSize> readBarSize(std::string_view stored);

class CSettingsStore {
public:
    // `files` must outlive the store.
    explicit CSettingsStore(SettingsFiles& files) : m_files(files) {}

    // The full path of the settings file; creates its folder. The separator before the file name is
    // doubled, which the platform accepts.
    std::string GetUserSettingPath();

    // SETTING_READ: `value` becomes what is stored, the empty text where that is empty or the file
    // cannot be opened, and "Key not found" where there is no such key; only the first is a
    // success. SETTING_WRITE: stores `value`, and creates the file if need be. A file that cannot
    // be opened leaves "Did not detect : " and its name in `error`. Any other mode fails and
    // touches nothing.
    int AccessUserSetting(int mode, const std::string& section, const std::string& key,
                          std::string& value, const std::string& path, std::string& error);

    // The same for the column profile of a list, in the settings file; a profile that is not there
    // reads as "Settings not found". There is no error text.
    int AccessColumnProfile(int mode, const std::string& listName, std::string& value);

    // The height of a splitter's row or the width of its column, in pixels at 96 dots per inch, by
    // its pane's key name; a pane
    // without one is not stored. Sizes are written but do not come back: restoring asks the store
    // in a mode that it does not serve.
    void saveSplitterSize(const std::string& paneKey, int pixels);
    std::optional<int> restoreSplitterSize(const std::string& paneKey);

    // A dialog bar's size, in the file and section that the bar names; an empty path keeps it out
    // of any file. Loading returns the size to apply; nothing means that the bar keeps its own.
    void saveBarSize(const std::string& path, const std::string& section, int controlId,
                     BarSize size);
    std::optional<BarSize> loadBarSize(const std::string& path, const std::string& section,
                                       int controlId);

private:
    struct Entry;
    int read(const Entry& entry, std::string& value, std::string* error);
    int write(const Entry& entry, const std::string& value, std::string* error);

    SettingsFiles& m_files;
};

}  // namespace mc
