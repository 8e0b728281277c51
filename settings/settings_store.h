// The settings store over the platform's own file services.
#pragma once

#include <cstdio>

#include "settings/model/settings_store.h"

namespace mc {

// Private-profile files, and the user's roaming application data as the shell knows it.
class CProfileFiles : public SettingsFiles {
public:
    CProfileFiles() = default;
    virtual ~CProfileFiles() { close(); }
    CProfileFiles(const CProfileFiles&) = delete;
    CProfileFiles& operator=(const CProfileFiles&) = delete;

    std::string applicationData() override;
    void createFolder(const std::string& folder) override;
    bool open(const std::string& path, const char* mode) override;
    void close() override;
    std::size_t read(const std::string& section, const std::string& key, const char* missing,
                     std::span<char> buffer, const std::string& path) override;
    bool write(const std::string& section, const std::string& key, const std::string& value,
               const std::string& path) override;

private:
    std::FILE* m_stream = nullptr;
};

// The plug-in's store.
CSettingsStore& settingsStore();

}  // namespace mc
