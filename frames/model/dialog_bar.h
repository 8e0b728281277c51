// CVoskDialogBar: the size of a bar that the user resizes, kept per user. The workbench is one
// while it floats; its owner tells the bar of the size and asks it for the one to begin with.
#pragma once

#include <string>
#include <utility>

#include "settings/model/settings_store.h"

namespace mc {

class CVoskDialogBar {
public:
    // The store must outlive the bar.
    CVoskDialogBar(CSettingsStore& settings, int controlId)
        : m_settings(settings), m_controlId(controlId) {}

    // The settings file. Without one, as the bar is made, it neither saves nor loads.
    void setPath(std::string path) { m_path = std::move(path); }

    BarSize size() const { return m_size; }
    void setSize(BarSize size) { m_size = size; }

    // The stored size, the default where none is stored; the present size where it is of no use.
    void load() {
        m_size = m_settings.loadBarSize(m_path, m_section, m_controlId).value_or(m_size);
    }
    void save() { m_settings.saveBarSize(m_path, m_section, m_controlId, m_size); }

private:
    CSettingsStore& m_settings;
    int m_controlId;
    std::string m_path;
    std::string m_section = kDialogBarSection;
    BarSize m_size = kDefaultBarSize;
};

}  // namespace mc
