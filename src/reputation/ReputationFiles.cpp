// SPDX-License-Identifier: GPL-3.0-or-later
#include "reputation/ReputationFiles.h"

#include "core/ProjectLayout.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"

#include <stdexcept>

namespace reputation {

std::string EventFile(std::string_view projectFolder) {
    return ProjectLayout(projectFolder).EventFile();
}

std::string EmpathyFile(std::string_view projectFolder, std::string_view nickname) {
    return ProjectLayout(projectFolder).EmpathyFile(nickname);
}

std::array<std::string, 4> ReadEvents(const std::string& eventFile, std::string_view faction) {
    std::array<std::string, 4> values;
    const auto document = txtReadWrite::ReadIniDocument(eventFile);
    for (std::size_t i = 0; i < EventKeys.size(); ++i)
        values[i] = document->Read(faction, EventKeys[i], DefaultValue);
    return values;
}

void WriteEvent(const std::string& eventFile, std::string_view faction, std::size_t event,
                std::string_view value) {
    txtReadWrite::WriteIni(faction, EventKeys.at(event), value, eventFile);
}

std::vector<std::string> ReadRates(const std::string& empathyFile,
                                   const std::vector<std::string>& towards) {
    std::vector<std::string> rates;
    rates.reserve(towards.size());
    const auto stored = txtReadWrite::ReadIniDocument(empathyFile);
    for (const std::string& toward : towards)
        rates.push_back(stored->Read(toward, RateKey, DefaultValue));
    return rates;
}

void StoreEditedRate(std::string_view projectFolder, std::string_view faction,
                     const std::vector<std::string>& towards, std::vector<std::string> rates,
                     std::size_t edited, std::string_view value, bool mirror) {
    if (towards.size() != rates.size() || edited >= towards.size())
        throw std::invalid_argument("StoreEditedRate: one rate per faction expected");
    rates[edited] = std::string(value);
    const std::string file = EmpathyFile(projectFolder, faction);
    txtReadWrite::Transaction transaction;
    for (std::size_t i = 0; i < towards.size(); ++i)
        transaction.WriteIni(towards[i], RateKey, rates[i], file);
    // For the faction's own row this is the entry just written, in the same file.
    if (mirror)
        transaction.WriteIni(faction, RateKey, value, EmpathyFile(projectFolder, towards[edited]));
    transaction.Commit();
}

} // namespace reputation
