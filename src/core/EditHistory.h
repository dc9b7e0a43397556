// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The history of a project's edits. For each user action (a step) it keeps the bytes, or the
// absence, of every project file the action changed, before and after. It learns of the files
// at the one place where files are replaced or deleted, so no caller needs code of its own:
// whatever is written while a step is open belongs to that step. Undo and redo put a step's
// files back all or nothing, through the same crash-safe staged commit; a file that no longer
// holds what the step left there (changed by another program) refuses both, and nothing is
// written. The protocol (a log) and the compiled folder (derived) are not kept.
#include "core/PathLookup.h"
#include "core/platformBasics.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

// Undo or redo refused: the file changed since the step left it.
class HistoryRefused : public std::runtime_error {
public:
    explicit HistoryRefused(std::string file);
    const std::string& file() const { return file_; }

private:
    std::string file_;
};

class EditHistory : public platform::WriteWitness {
public:
    static constexpr std::size_t DefaultLimit = std::size_t{256} << 20; // bytes of file contents

    // projectFolder: the project's folder as the project routines spell it ("\" between pieces).
    explicit EditHistory(std::string_view projectFolder, std::size_t limit = DefaultLimit);
    ~EditHistory() override;
    EditHistory(const EditHistory&) = delete;
    EditHistory& operator=(const EditHistory&) = delete;

    // Starts a step: the files written until the matching Close belong to it. An Open inside
    // an open step joins it (a handler that calls another).
    void Open(std::string label);
    enum class Closed {
        Nothing,    // no project file changed
        Recorded,   // a step that can be undone
        NotUndoable // done, but larger than the history holds (or unreadable): history emptied
    };
    Closed Close();
    // Closes a step opened right after an Undo (undone) or a Redo: what it wrote (views
    // showing the restored files write their defaults back) becomes part of the state put
    // back, not a step of its own, so that the way back is not refused for it.
    void CloseIntoRestored(bool undone);
    bool Recording() const { return depth_ > 0; }

    // Opens a step for its lifetime.
    class Step {
    public:
        Step(EditHistory& history, std::string label) : history_(&history) {
            history.Open(std::move(label));
        }
        ~Step() {
            if (history_)
                history_->Close();
        }
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;
        Closed Close() { return std::exchange(history_, nullptr)->Close(); }

    private:
        EditHistory* history_;
    };

    std::size_t UndoCount() const { return undo_.size(); }
    std::size_t RedoCount() const { return redo_.size(); }
    // The label of the step that Undo or Redo would take; empty when there is none.
    std::string_view UndoLabel() const;
    std::string_view RedoLabel() const;
    // The files of the step that Undo would take back, as host paths.
    std::vector<std::string> UndoFiles() const;
    // Put the last step's "before" (Undo) or the next step's "after" (Redo) back. Throws
    // HistoryRefused or platform::FileError; nothing changes on disk then.
    void Undo();
    void Redo();
    // The last step becomes part of the one before it (more typing in the same field).
    void MergeLast();
    void Clear();

    // Bytes of file contents held (steps to undo and to redo), and the steps dropped so far to stay
    // within the limit.
    std::size_t HeldBytes() const { return held_; }
    std::uint64_t DroppedSteps() const { return dropped_; }

    bool Wants(const std::string& hostPath) const override;
    void Changing(const std::string& hostPath) override;
    void Written(const std::string& hostPath, std::optional<std::string> bytes) override;

private:
    // A file's bytes, shared between the step that left them and the next that changes the
    // file again; null: the file is absent.
    using Contents = std::shared_ptr<const std::string>;
    struct FileState {
        std::string path; // host path
        Contents before;
        Contents after;
    };
    // What the open step saw of a file: its bytes before, and after once written.
    struct Opened {
        Contents before;
        Contents after;
        bool written = false;
    };
    // A file as the last step (or undo) left it, while its stamp says it still is.
    struct Known {
        std::optional<platform::FileStamp> stamp;
        Contents bytes;
    };
    struct Record {
        std::string label;
        std::vector<FileState> files;
        std::size_t bytes = 0;
    };
    bool Kept(const std::string& hostPath) const;
    // Ends the open step and gathers the files it changed; Recorded when there are some.
    Closed Collect(Record& record);
    static Contents Read(const std::string& hostPath);
    void Remember(const std::string& hostPath, Contents bytes);
    static std::size_t BytesOf(const Record& record);
    // Checks that every file holds `expected`, then puts `wanted` in place, all at once.
    void Put(const Record& record, Contents FileState::*expected, Contents FileState::*wanted);

    std::string root_;                // the project folder's host path, with a "/" at its end
    std::vector<std::string> unkept_; // folders below it left alone, folded
    std::size_t limit_;
    int depth_ = 0;
    std::mutex mutex_; // the open step: writes may come from a worker thread
    std::string label_;
    std::map<std::string, Opened> opened_; // host path -> what the open step saw
    std::unordered_map<std::string, Known> known_;
    std::size_t openedBytes_ = 0;
    bool overflow_ = false;
    std::deque<Record> undo_;
    std::vector<Record> redo_;
    std::size_t held_ = 0;
    std::uint64_t dropped_ = 0;
};
