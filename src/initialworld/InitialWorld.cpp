// SPDX-License-Identifier: GPL-3.0-or-later
#include "initialworld/InitialWorld.h"

#include "core/ProjectLayout.h"
#include "core/txtReadWrite.h"

namespace initialworld {

std::string DataFile(std::string_view projectFolder) {
    return ProjectLayout(projectFolder).WorldFile();
}

Ids ReadIds(const std::string& file, std::string_view faction) {
    const auto document = txtReadWrite::ReadIniDocument(file);
    return {document->Read(faction, IdsName, MissingIds),
            document->Read(faction, IdsShortName, MissingIds),
            document->Read(faction, IdsInfo, MissingIds)};
}

void WriteIds(const std::string& file, std::string_view faction, std::string_view key,
              std::string_view value) {
    txtReadWrite::WriteIni(faction, key, value, file);
}

std::vector<std::string> ReadReputations(const std::string& file, std::string_view faction,
                                         const std::vector<std::string>& rows) {
    return txtReadWrite::ReadIniDocument(file)->ReadEach(faction, rows, "");
}

void WriteReputation(const std::string& file, std::string_view faction, std::string_view other,
                     std::string_view value, bool mirror) {
    txtReadWrite::Transaction transaction;
    transaction.WriteIni(faction, other, value, file);
    if (mirror)
        transaction.WriteIni(other, faction, value, file);
    transaction.Commit();
}

} // namespace initialworld
