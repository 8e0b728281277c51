#include "editors/edit_session.h"

namespace mc {

void EditSession::begin() {
    m_opened = m_control.text();
    m_over = false;
}

std::optional<std::string> EditSession::refused() const {
    return changed() ? m_control.refusal() : std::nullopt;
}

EditSession::Answer EditSession::end(EditEnd how) {
    if (m_over) return Answer::over;
    if (m_asking) return Answer::asking;
    m_asking = true;
    const bool keeps = how != EditEnd::cancel;
    if (keeps) m_control.finishTyping();
    const bool stays = keeps && refused();
    const bool takes = keeps && changed();
    const auto life = this->life();
    if (!stays) m_owner.editEnding(how, takes ? std::optional(m_control.text()) : std::nullopt);
    if (life.expired()) return Answer::over;
    m_asking = false;
    if (stays) return Answer::refused;
    m_over = true;
    return Answer::ended;
}

bool EditSession::tell() {
    const std::optional<std::string> message = refused();
    if (!message) return false;
    const auto life = this->life();
    m_asking = true;
    m_owner.editRefused(*message);
    if (life.expired()) return false;
    m_asking = false;
    return true;
}

}  // namespace mc
