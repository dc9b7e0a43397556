// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Every byte that reaches the disk passes through here: INI values and whole text files.
#include "core/IniDocument.h"
#include "core/platform.h"

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// A failed INI write (the "invalid procedure call or argument" error, number 5).
class IniWriteError : public std::runtime_error {
public:
    IniWriteError(std::string file, const std::string& reason);
    const std::string& file() const { return file_; }
    static constexpr int Number = 5;

private:
    std::string file_;
};

namespace txtReadWrite {

// The application directory that GetDefaultIniPath uses; set at start-up, read by any thread.
void SetApplicationDirectory(std::string_view appDir);
std::string ApplicationDirectory();
std::string GetDefaultIniPath();

std::string ReadIni(std::string_view section, std::string_view key, std::string_view defaultValue,
                    const std::string& file);
void WriteIni(std::string_view section, std::string_view key, std::string_view value,
              const std::string& file); // throws IniWriteError

// The parsed document of a file (empty when missing), shared from a small cache that is
// revalidated by size, modification time and identity. Compilers read many keys per parse.
// Several threads may read at once (the compiles do): a cached document is never edited, a
// write edits a copy and puts that in its place.
std::shared_ptr<const IniDocument> LoadIni(const std::string& file);
// The same for reading only: an unreadable file reads like a missing one, as ReadIni does.
std::shared_ptr<const IniDocument> ReadIniDocument(const std::string& file);

// Drops every cached document: files were put back behind the cache's back (an undo), and a
// stamp alone might not tell.
void ForgetCachedDocuments();

// The parsed document of a file (empty when missing), read past the cache and not kept
// there: for the hundreds of small files a compile reads once each, which would otherwise
// push the large documents out of the cache.
IniDocument ParseIniFile(const std::string& file);

std::string ReadFileText(const std::string& path);
// Adds CR LF. Takes the text: a compiled game file of megabytes moved in is not copied.
void WriteFileText(const std::string& path, std::string text);
// The bytes that the whole-file writes put on disk for a text: the text and a line end.
std::string FileBytes(std::string text);
void AppendFileText(const std::string& path, std::string_view text); // adds CR LF
std::string ReadFileLine(const std::string& path, long lineNumber);
// The lines of a text, each ended by CR LF or a lone LF; a lone CR stays in its line.
std::vector<std::string_view> SplitLines(std::string_view bytes);
// Calls take(line) for each of those lines in turn, without a list of them.
template <typename Take> void ForEachLine(std::string_view bytes, const Take& take) {
    std::size_t pos = 0;
    while (pos < bytes.size()) {
        const std::size_t lf = bytes.find('\n', pos);
        if (lf == std::string_view::npos) {
            take(bytes.substr(pos));
            return;
        }
        const std::size_t end = (lf > pos && bytes[lf - 1] == '\r') ? lf - 1 : lf;
        take(bytes.substr(pos, end - pos));
        pos = lf + 1;
    }
}
// Every line of a file (ends: CR LF or lone LF); empty when the file is missing.
std::vector<std::string> ReadLines(const std::string& path);

// Collects INI writes and whole-file writes in memory and puts them on disk together:
// each file is parsed once and written once, all-or-nothing. Reads through the
// transaction see its pending writes. Destruction without Commit discards everything.
class Transaction {
public:
    Transaction() = default;
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    std::string ReadIni(std::string_view section, std::string_view key,
                        std::string_view defaultValue, const std::string& file);
    void WriteIni(std::string_view section, std::string_view key, std::string_view value,
                  const std::string& file);
    // WriteIni for each key and value in turn, the section looked up once.
    void WriteEach(std::string_view section, const std::vector<IniDocument::KeyValue>& values,
                   const std::string& file);
    void WriteFileText(const std::string& path, std::string_view text); // adds CR LF
    // Writes every changed file crash-safely; on failure no file changes. Throws IniWriteError
    // for an INI file and platform::FileError for a text file. The calls are the system's
    // own, or a test's that fail on purpose.
    void Commit(platform::FileCalls& calls = platform::CurrentFileCalls());
    // The same together with files staged already (written ahead by the caller): this
    // transaction's files are staged beside them, and all are put in place at once.
    void Commit(platform::StagedReplacement& replacement);

private:
    struct Pending {
        std::string file; // as first given
        std::unique_ptr<IniDocument> ini;
        std::string text;
        bool isIni = false;
        bool changed = false;
        bool listed = false; // the file existed when it was first looked up
    };
    Pending& Slot(const std::string& file);
    // The slot of an INI file, its document loaded on first use.
    Pending& IniSlot(const std::string& path);
    std::map<std::string, Pending> pending_;             // keyed by the folded resolved path
    std::unordered_map<std::string, std::string> keyOf_; // given path -> key in pending_
    std::vector<std::string> order_;
    platform::PathResolver resolver_;
    std::string lastGiven_; // the file of the previous call and its slot
    Pending* last_ = nullptr;
};

} // namespace txtReadWrite
