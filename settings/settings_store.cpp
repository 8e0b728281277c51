#include "settings/settings_store.h"

#include <windows.h>

#include <shlobj.h>

namespace mc {

std::string CProfileFiles::applicationData() {
    char path[MAX_PATH]{};
    if (SHGetSpecialFolderPathA(nullptr, path, CSIDL_APPDATA, FALSE) == FALSE) return {};
    return path;
}

void CProfileFiles::createFolder(const std::string& folder) {
    CreateDirectoryA(folder.c_str(), nullptr);
}

bool CProfileFiles::open(const std::string& path, const char* mode) {
    close();
    m_stream = std::fopen(path.c_str(), mode);
    return m_stream != nullptr;
}

void CProfileFiles::close() {
    if (m_stream != nullptr) std::fclose(m_stream);
    m_stream = nullptr;
}

std::size_t CProfileFiles::read(const std::string& section, const std::string& key,
                                const char* missing, std::span<char> buffer,
                                const std::string& path) {
    return GetPrivateProfileStringA(section.c_str(), key.c_str(), missing, buffer.data(),
                                    static_cast<DWORD>(buffer.size()), path.c_str());
}

bool CProfileFiles::write(const std::string& section, const std::string& key,
                          const std::string& value, const std::string& path) {
    return WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), path.c_str()) !=
           FALSE;
}

CSettingsStore& settingsStore() {
    static CProfileFiles files;
    static CSettingsStore store(files);
    return store;
}

}  // namespace mc
