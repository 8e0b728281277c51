// Messages made ahead of a measurement, so that only the plug-in's side of them is timed.
#pragma once

#include <windows.h>

#include <psapi.h>

#include <chrono>
#include <functional>
#include <utility>
#include <vector>

#include "sdk/connectvosk.h"
#include "tests/windows/test_host.h"

class Messages {
public:
    Messages(std::size_t count, const std::function<Fields(std::size_t)>& fields) {
        for (std::size_t i = 0; i < count; ++i) {
            void* message = nullptr;
            void* scratch = nullptr;
            otp_ctor_primecb(&message, nullptr);
            otp_open_scratch(&scratch, 256, nullptr);
            otp_start_msg(message, scratch, nullptr);
            for (const auto& [id, text] : fields(i))
                otp_add_data_as_cstring(message, id, 1, text.c_str(), nullptr);
            m_made.emplace_back(message, scratch);
        }
    }
    ~Messages() {
        for (const auto& [message, scratch] : m_made) {
            otp_dtor_primecb(message, nullptr);
            otp_close_scratch(scratch, nullptr);
        }
    }
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    // Nanoseconds per message. The one paint that follows is not in it.
    double publishTo(HandlePublishMsgEntry* publish) const {
        const auto start = std::chrono::steady_clock::now();
        for (const auto& [message, scratch] : m_made) publish(message);
        const std::chrono::duration<double, std::nano> time =
            std::chrono::steady_clock::now() - start;
        pump();
        return time.count() / static_cast<double>(m_made.size());
    }

private:
    std::vector<std::pair<void*, void*>> m_made;
};

// A change of a dealer, as it is published. Keys are numbered from `key`.
inline std::string keyText(std::size_t key) {
    return std::to_string(1000000 + key);
}
inline Fields change(std::size_t key) {
    const std::string text = keyText(key);
    return pending(text, "340",
                   {{54036, "DEALER"},
                    {54247, "MAKER01"},
                    {64056, "ZEKB"},
                    {64053, "MUM01"},
                    {31003, "DEALER" + text}});
}

inline std::size_t privateBytes() {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                         sizeof counters);
    return counters.PagefileUsage;  // private, committed; Wine leaves PrivateUsage empty
}
