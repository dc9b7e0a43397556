// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/txtReadWrite.h"

#include "core/names.h"

#include <mutex>
#include <unordered_map>

IniWriteError::IniWriteError(std::string file, const std::string& reason)
    : std::runtime_error("Error 5: could not write " + platform::ForMessage(file) + " (" + reason +
                         ")"),
      file_(std::move(file)) {}

namespace txtReadWrite {
namespace {

constexpr std::string_view DefaultIniName = "Kelvaro.ini";
constexpr std::string_view LineEnd = "\r\n";

// The application directory and the default settings file's path worked out from it, set at
// start-up and read by any thread.
struct DefaultPlace {
    std::mutex mutex;
    std::string appDir = platform::ExecutableFolder();
    std::string iniPath; // empty until first asked for
};

DefaultPlace& Place() {
    static DefaultPlace place;
    return place;
}

// Parsed INI documents by resolved path, trusted while the file's stamp is unchanged.
// Compiles running side by side read through it at once; a file is parsed outside the lock,
// so that one large parse does not hold up the others.
class IniCache {
public:
    std::shared_ptr<const IniDocument> Load(const std::string& resolved) {
        return Load(platform::LookUpFile(resolved));
    }

    std::shared_ptr<const IniDocument> Load(const platform::ResolvedFile& file) {
        const std::string& resolved = file.path;
        const auto& stamp = file.stamp;
        if (!stamp) {
            Forget(resolved);
            return std::make_shared<IniDocument>();
        }
        {
            const std::lock_guard lock(mutex_);
            const auto it = entries_.find(resolved);
            if (it != entries_.end() && it->second.stamp == *stamp)
                return it->second.document;
        }
        auto document = std::make_shared<IniDocument>(platform::ReadBytes(resolved).value_or(""));
        const std::lock_guard lock(mutex_);
        if (entries_.size() >= MaxEntries)
            entries_.clear();
        entries_[resolved] = {*stamp, document};
        return document;
    }

    void Remember(const std::string& resolved, std::shared_ptr<const IniDocument> document) {
        const auto stamp = platform::StampOf(resolved);
        const std::lock_guard lock(mutex_);
        if (stamp)
            entries_[resolved] = {*stamp, std::move(document)};
        else
            entries_.erase(resolved);
    }

    void Forget(const std::string& resolved) {
        const std::lock_guard lock(mutex_);
        entries_.erase(resolved);
    }

    void ForgetAll() {
        const std::lock_guard lock(mutex_);
        entries_.clear();
    }

private:
    struct Entry {
        platform::FileStamp stamp;
        std::shared_ptr<const IniDocument> document;
    };
    static constexpr std::size_t MaxEntries = 256;
    std::mutex mutex_;
    std::unordered_map<std::string, Entry> entries_;
};

IniCache& Cache() {
    static IniCache cache;
    return cache;
}

// The file given, or the default settings file (put in storage) for an empty name. The given
// one by reference, not copied: batches call this for each of hundreds of thousands of values.
const std::string& IniFile(const std::string& file, std::string& storage) {
    if (!file.empty())
        return file;
    storage = GetDefaultIniPath();
    return storage;
}

} // namespace

void SetApplicationDirectory(std::string_view appDir) {
    DefaultPlace& place = Place();
    const std::lock_guard lock(place.mutex);
    place.appDir = std::string(appDir);
    place.iniPath.clear();
}

std::string ApplicationDirectory() {
    DefaultPlace& place = Place();
    const std::lock_guard lock(place.mutex);
    return place.appDir;
}

std::string GetDefaultIniPath() {
    DefaultPlace& place = Place();
    const std::lock_guard lock(place.mutex);
    if (place.iniPath.empty()) {
        const std::string& appDir = place.appDir;
        place.iniPath = (!appDir.empty() && appDir.back() == '\\')
                            ? appDir + std::string(DefaultIniName)
                            : appDir + "\\" + std::string(DefaultIniName);
    }
    return place.iniPath;
}

std::shared_ptr<const IniDocument> LoadIni(const std::string& file) {
    std::string storage;
    return Cache().Load(platform::LookUpFile(IniFile(file, storage)));
}

std::shared_ptr<const IniDocument> ReadIniDocument(const std::string& file) {
    try {
        return LoadIni(file);
    } catch (const std::exception&) {
        static const auto missing = std::make_shared<const IniDocument>();
        return missing;
    }
}

void ForgetCachedDocuments() {
    Cache().ForgetAll();
}

IniDocument ParseIniFile(const std::string& file) {
    std::string storage;
    return IniDocument(platform::ReadBytes(IniFile(file, storage)).value_or(""));
}

std::string ReadIni(std::string_view section, std::string_view key, std::string_view defaultValue,
                    const std::string& file) {
    return ReadIniDocument(file)->Read(section, key, defaultValue);
}

void WriteIni(std::string_view section, std::string_view key, std::string_view value,
              const std::string& file) {
    std::string storage;
    const std::string path = IniFile(file, storage);
    std::string resolved;
    try {
        resolved = platform::ResolvePath(path);
        // A copy is edited, never the cached document: another thread may be reading it.
        auto document = std::make_shared<IniDocument>(*Cache().Load(resolved));
        if (!document->Write(section, key, value))
            return;
        try {
            platform::ReplaceFile(resolved, document->Bytes());
        } catch (...) {
            Cache().Forget(resolved);
            throw;
        }
        Cache().Remember(resolved, std::move(document));
    } catch (const platform::FileError& error) {
        throw IniWriteError(path, error.what());
    } catch (const std::bad_alloc&) {
        throw IniWriteError(path, "out of memory");
    }
}

std::string ReadFileText(const std::string& path) {
    return platform::ReadBytes(path).value_or("");
}

std::string FileBytes(std::string text) {
    text += LineEnd;
    return text;
}

void WriteFileText(const std::string& path, std::string text) {
    platform::ReplaceFile(path, FileBytes(std::move(text)));
}

void AppendFileText(const std::string& path, std::string_view text) {
    std::string bytes(text);
    bytes += LineEnd;
    platform::AppendBytes(path, bytes);
}

std::vector<std::string_view> SplitLines(std::string_view bytes) {
    std::vector<std::string_view> lines;
    // Counted first, with the library's fast search for the line ends: a library file of
    // hundreds of lines would otherwise grow the list many times.
    std::size_t count = 1;
    for (std::size_t lf = bytes.find('\n'); lf != std::string_view::npos;
         lf = bytes.find('\n', lf + 1))
        ++count;
    lines.reserve(count);
    ForEachLine(bytes, [&lines](std::string_view line) { lines.push_back(line); });
    return lines;
}

std::vector<std::string> ReadLines(const std::string& path) {
    const std::string bytes = platform::ReadBytes(path).value_or("");
    const auto views = SplitLines(bytes);
    return {views.begin(), views.end()};
}

std::string ReadFileLine(const std::string& path, long lineNumber) {
    if (lineNumber <= 0)
        return {};
    auto lines = ReadLines(path);
    if (static_cast<std::size_t>(lineNumber) > lines.size())
        return {};
    return std::move(lines[static_cast<std::size_t>(lineNumber) - 1]);
}

// ---- Transaction ----

Transaction::Pending& Transaction::Slot(const std::string& file) {
    // Batches write many values into one file in a row.
    if (last_ && file == lastGiven_)
        return *last_;
    lastGiven_ = file;
    if (const auto known = keyOf_.find(file); known != keyOf_.end())
        return *(last_ = &pending_.at(known->second));
    auto found = resolver_.Find(file);
    const std::string keyName = platform::FoldedDiskName(found.path);
    auto [it, inserted] = pending_.try_emplace(keyName);
    if (inserted) {
        it->second.file = std::move(found.path);
        it->second.listed = found.listed;
        order_.push_back(keyName);
    }
    keyOf_.emplace(file, keyName);
    return *(last_ = &it->second);
}

std::string Transaction::ReadIni(std::string_view section, std::string_view key,
                                 std::string_view defaultValue, const std::string& file) {
    std::string storage;
    const std::string path = IniFile(file, storage);
    Pending& slot = Slot(path);
    if (slot.isIni)
        return slot.ini->Read(section, key, defaultValue);
    return txtReadWrite::ReadIni(section, key, defaultValue, path);
}

Transaction::Pending& Transaction::IniSlot(const std::string& path) {
    Pending& slot = Slot(path);
    if (!slot.isIni) {
        try {
            slot.ini = std::make_unique<IniDocument>(*LoadIni(path));
        } catch (const std::exception& error) {
            throw IniWriteError(path, error.what());
        }
        slot.isIni = true;
    }
    return slot;
}

void Transaction::WriteIni(std::string_view section, std::string_view key, std::string_view value,
                           const std::string& file) {
    std::string storage;
    Pending& slot = IniSlot(IniFile(file, storage));
    if (slot.ini->Write(section, key, value))
        slot.changed = true;
}

void Transaction::WriteEach(std::string_view section,
                            const std::vector<IniDocument::KeyValue>& values,
                            const std::string& file) {
    std::string storage;
    Pending& slot = IniSlot(IniFile(file, storage));
    if (slot.ini->WriteEach(section, values))
        slot.changed = true;
}

void Transaction::WriteFileText(const std::string& path, std::string_view text) {
    Pending& slot = Slot(path);
    slot.isIni = false;
    slot.ini.reset();
    slot.text = FileBytes(std::string(text));
    slot.changed = true;
}

void Transaction::Commit(platform::FileCalls& calls) {
    platform::StagedReplacement replacement(calls);
    Commit(replacement);
}

void Transaction::Commit(platform::StagedReplacement& replacement) {
    std::vector<platform::StagedReplacement::Staging> files;
    for (const std::string& keyName : order_) {
        Pending& slot = pending_.at(keyName);
        if (!slot.changed) {
            replacement.Tidy(slot.file); // a re-run after a crash leaves no leftover
            continue;
        }
        const auto presence =
            slot.listed ? platform::Presence::Present : platform::Presence::Missing;
        if (slot.isIni) // written in pieces: a large INI file is never assembled whole
            files.push_back({slot.file, {}, presence, [&document = *slot.ini](const auto& put) {
                                 document.WriteTo(put);
                             }});
        else
            files.push_back({slot.file, slot.text, presence});
    }
    try {
        replacement.StageAll(files);
    } catch (const platform::FileError& error) {
        if (const auto it = pending_.find(platform::FoldedDiskName(error.path()));
            it != pending_.end() && it->second.isIni)
            throw IniWriteError(it->second.file, error.what());
        throw;
    }
    replacement.Commit();
    for (const std::string& keyName : order_) {
        Pending& slot = pending_.at(keyName);
        if (slot.changed && slot.isIni)
            Cache().Remember(slot.file, std::shared_ptr<IniDocument>(std::move(slot.ini)));
        else if (slot.changed)
            Cache().Forget(slot.file);
    }
    pending_.clear();
    keyOf_.clear();
    last_ = nullptr;
    order_.clear();
    resolver_ = {}; // the folders changed
}

} // namespace txtReadWrite
