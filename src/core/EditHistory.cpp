// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/EditHistory.h"

#include "core/platform.h"
#include "core/txtReadWrite.h"

#include <algorithm>
#include <cerrno>

namespace {

// Between the pieces of a host path: "/", or "\\" on Windows.
char Separator() {
    static const char separator = platform::HostPath("\\").front(); // asked on every write
    return separator;
}

bool Same(const std::shared_ptr<const std::string>& a,
          const std::shared_ptr<const std::string>& b) {
    return a == b || (a && b && *a == *b);
}

// Folders of a project that the history leaves alone: the log and what a compile derives.
constexpr std::string_view Unkept[] = {"protocol", "compiled"};

// Sets the witness for its lifetime and takes it away again, even when recording fails.
class NoWitness {
public:
    NoWitness() : saved_(platform::CurrentWriteWitness()) { platform::SetWriteWitness(nullptr); }
    ~NoWitness() { platform::SetWriteWitness(saved_); }
    NoWitness(const NoWitness&) = delete;
    NoWitness& operator=(const NoWitness&) = delete;

private:
    platform::WriteWitness* saved_;
};

} // namespace

HistoryRefused::HistoryRefused(std::string file)
    : std::runtime_error(platform::ForMessage(file) +
                         " was changed outside this window since then; nothing was changed"),
      file_(std::move(file)) {}

EditHistory::EditHistory(std::string_view projectFolder, std::size_t limit)
    : root_(platform::ResolvePath(projectFolder)), limit_(limit) {
    while (root_.size() > 1 && root_.back() == Separator())
        root_.pop_back();
    root_ += Separator();
    for (const std::string_view folder : Unkept)
        unkept_.push_back(platform::FoldedDiskName(folder));
}

EditHistory::~EditHistory() {
    if (platform::CurrentWriteWitness() == this)
        platform::SetWriteWitness(nullptr);
}

bool EditHistory::Kept(const std::string& hostPath) const {
    if (!hostPath.starts_with(root_))
        return false;
    const std::string_view inside = std::string_view(hostPath).substr(root_.size());
    const auto slash = inside.find(Separator());
    if (slash == std::string_view::npos)
        return true;
    const std::string folder = platform::FoldedDiskName(inside.substr(0, slash));
    return std::find(unkept_.begin(), unkept_.end(), folder) == unkept_.end();
}

void EditHistory::Open(std::string label) {
    if (depth_++ > 0)
        return;
    const std::lock_guard lock(mutex_);
    label_ = std::move(label);
    opened_.clear();
    openedBytes_ = 0;
    overflow_ = false;
    platform::SetWriteWitness(this);
}

bool EditHistory::Wants(const std::string& hostPath) const {
    return Kept(hostPath);
}

EditHistory::Contents EditHistory::Read(const std::string& hostPath) {
    if (!platform::StampOfHost(hostPath))
        return nullptr; // absent, without a search for another spelling
    auto bytes = platform::ReadBytes(hostPath);
    return bytes ? std::make_shared<const std::string>(std::move(*bytes)) : nullptr;
}

void EditHistory::Remember(const std::string& hostPath, Contents bytes) {
    known_[hostPath] = {platform::StampOfHost(hostPath), std::move(bytes)};
}

void EditHistory::Changing(const std::string& hostPath) {
    if (!Kept(hostPath))
        return;
    const std::lock_guard lock(mutex_);
    auto [it, first] = opened_.try_emplace(hostPath);
    if (!first || overflow_)
        return;
    // A file still as the last step left it need not be read again: the bytes are shared.
    Contents& before = it->second.before;
    const auto known = known_.find(hostPath);
    if (known != known_.end() && known->second.stamp == platform::StampOfHost(hostPath)) {
        before = known->second.bytes;
    } else {
        try {
            before = Read(hostPath);
        } catch (const platform::FileError&) {
            overflow_ = true; // what it held is unknown: the step cannot be undone
            return;
        }
    }
    openedBytes_ += before ? before->size() : 0;
    if (openedBytes_ > limit_)
        overflow_ = true;
}

void EditHistory::Written(const std::string& hostPath, std::optional<std::string> bytes) {
    const std::lock_guard lock(mutex_);
    const auto opened = opened_.find(hostPath); // Changing chose the files kept
    if (opened == opened_.end())
        return;
    Opened& file = opened->second;
    if (overflow_) {
        known_.erase(hostPath);
        return;
    }
    openedBytes_ -= file.after ? file.after->size() : 0; // written again in the same step
    file.after = bytes ? std::make_shared<const std::string>(std::move(*bytes)) : nullptr;
    file.written = true;
    openedBytes_ += file.after ? file.after->size() : 0;
    if (openedBytes_ > limit_)
        overflow_ = true;
    Remember(hostPath, file.after);
}

std::size_t EditHistory::BytesOf(const Record& record) {
    std::size_t bytes = 0;
    for (const FileState& file : record.files)
        bytes += (file.before ? file.before->size() : 0) + (file.after ? file.after->size() : 0);
    return bytes;
}

EditHistory::Closed EditHistory::Collect(Record& record) {
    if (depth_ == 0 || --depth_ > 0)
        return Closed::Nothing;
    if (platform::CurrentWriteWitness() == this)
        platform::SetWriteWitness(nullptr);
    const std::lock_guard lock(mutex_);
    record.label = std::move(label_);
    bool unknown = overflow_;
    for (auto& [path, file] : opened_) {
        if (!unknown && !file.written) {
            try {
                file.after = Read(path);
            } catch (const platform::FileError&) {
                unknown = true;
            }
        }
        if (unknown || !Same(file.before, file.after))
            record.files.push_back({path, std::move(file.before), std::move(file.after)});
    }
    opened_.clear();
    if (record.files.empty())
        return Closed::Nothing;
    record.bytes = BytesOf(record);
    if (unknown || record.bytes > limit_) {
        Clear();
        return Closed::NotUndoable;
    }
    return Closed::Recorded;
}

EditHistory::Closed EditHistory::Close() {
    Record record;
    const Closed closed = Collect(record);
    if (closed != Closed::Recorded)
        return closed;
    for (const Record& undone : redo_)
        held_ -= undone.bytes;
    redo_.clear();
    held_ += record.bytes;
    undo_.push_back(std::move(record));
    while (held_ > limit_) {
        held_ -= undo_.front().bytes;
        undo_.pop_front();
        ++dropped_;
    }
    return Closed::Recorded;
}

void EditHistory::CloseIntoRestored(bool undone) {
    Record written;
    if (Collect(written) != Closed::Recorded)
        return;
    if (undone ? redo_.empty() : undo_.empty())
        return;
    // The files as the views left them become the state that this undo (or redo) put back.
    Record& into = undone ? redo_.back() : undo_.back();
    for (FileState& file : written.files) {
        const auto same =
            std::find_if(into.files.begin(), into.files.end(),
                         [&](const FileState& kept) { return kept.path == file.path; });
        if (same != into.files.end())
            (undone ? same->before : same->after) = file.after;
        else if (undone)
            into.files.push_back({file.path, file.after, file.before});
        else
            into.files.push_back(std::move(file));
    }
    held_ -= into.bytes;
    into.bytes = BytesOf(into);
    held_ += into.bytes;
}

std::string_view EditHistory::UndoLabel() const {
    return undo_.empty() ? std::string_view() : undo_.back().label;
}

std::string_view EditHistory::RedoLabel() const {
    return redo_.empty() ? std::string_view() : redo_.back().label;
}

std::vector<std::string> EditHistory::UndoFiles() const {
    std::vector<std::string> files;
    if (!undo_.empty())
        for (const FileState& file : undo_.back().files)
            files.push_back(file.path);
    return files;
}

void EditHistory::Put(const Record& record, Contents FileState::*expected,
                      Contents FileState::*wanted) {
    const NoWitness quiet; // putting back is no new step
    for (const FileState& file : record.files)
        if (!Same(Read(file.path), file.*expected))
            throw HistoryRefused(file.path);
    platform::StagedReplacement replacement;
    for (const FileState& file : record.files) {
        if (const Contents& contents = file.*wanted)
            replacement.StageResolved(file.path, *contents);
        else
            replacement.StageRemoval(file.path);
    }
    replacement.Commit();
    txtReadWrite::ForgetCachedDocuments();
    for (const FileState& file : record.files)
        Remember(file.path, file.*wanted);
}

void EditHistory::Undo() {
    if (undo_.empty() || Recording())
        return;
    Put(undo_.back(), &FileState::after, &FileState::before);
    redo_.push_back(std::move(undo_.back()));
    undo_.pop_back();
}

void EditHistory::Redo() {
    if (redo_.empty() || Recording())
        return;
    Put(redo_.back(), &FileState::before, &FileState::after);
    undo_.push_back(std::move(redo_.back()));
    redo_.pop_back();
}

void EditHistory::MergeLast() {
    if (undo_.size() < 2)
        return;
    Record last = std::move(undo_.back());
    undo_.pop_back();
    Record& into = undo_.back();
    held_ -= last.bytes + into.bytes;
    for (FileState& file : last.files) {
        const auto same =
            std::find_if(into.files.begin(), into.files.end(),
                         [&](const FileState& kept) { return kept.path == file.path; });
        if (same == into.files.end())
            into.files.push_back(std::move(file));
        else
            same->after = std::move(file.after);
    }
    into.bytes = BytesOf(into);
    held_ += into.bytes;
}

void EditHistory::Clear() {
    known_.clear();
    undo_.clear();
    redo_.clear();
    held_ = 0;
}
