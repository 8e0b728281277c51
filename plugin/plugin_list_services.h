// What the lists ask of the plug-in: the host's permission, the settings file, the sort images.
#pragma once

#include "framework/handles.h"
#include "listctrl/list_services.h"
#include "plugin/host_services.h"
#include "sdk/host_services.h"
#include "settings/settings_store.h"

namespace mc {

class CPluginListServices final : public ListServices {
public:
    // Both must outlive the object.
    CPluginListServices(CHostServices& host, fw::ImageList& glyphs)
        : m_host(host), m_glyphs(glyphs) {}

    bool mayExport() override { return m_host.mayUseFunction(kFunctionExportAndCopy); }
    CSettingsStore& settings() override { return settingsStore(); }
    void showMessage(const std::string& text) override { m_host.showMessage(text); }
    HIMAGELIST glyphs() override { return m_glyphs.get(); }

private:
    CHostServices& m_host;
    fw::ImageList& m_glyphs;
};

}  // namespace mc
