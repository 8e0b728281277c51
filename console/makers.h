// The makers: what the menu "Maker" and play scripts let them do.
#pragma once

#include <random>
#include <string>

#include "console/exchange.h"
#include "console/log_book.h"
#include "console/model/scenario.h"
#include "console/model/storm.h"

namespace zek {

// Who decides when another checker does.
inline constexpr char kOtherChecker[] = "RISKADM2";

class Makers {
public:
    Makers(CExchange& exchange, LogBook& log) : m_exchange(exchange), m_log(log) {}

    // Takes a scenario: whom it names exists from now on, its changes wait to be submitted.
    void load(Scenario scenario);

    // From here on storms and random changes are the same ones in every run.
    void repeatStorms() { m_seed = kRepeatedSeed; }

    // How many changes were submitted; 0 when the scenario has none left.
    int submitNext();
    int submitAll();
    int submitRandom() { return submitStorm(1); }
    int submitStorm(int count);

    // Another checker decides a change. False when the server refuses.
    bool decide(const std::string& key, bool accepted);
    bool decideOldest(bool accepted);

private:
    std::string submit(const Change& change);

    CExchange& m_exchange;
    LogBook& m_log;
    Scenario m_scenario;
    std::size_t m_next = 0;
    unsigned m_seed = std::random_device{}();
};

}  // namespace zek
