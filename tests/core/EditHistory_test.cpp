// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/EditHistory.h"
#include "core/modFunctions.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "import/Import.h"
#include "import/LibraryFixture.h"
#include "support/NthCallFails.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace {

namespace fs = std::filesystem;
using Closed = EditHistory::Closed;

const char* const Nicks[] = {"ab_grp", "cd_grp", "ef_grp", "new_grp", "x_grp"};

class History : public ::testing::Test, protected LibraryFixture {
protected:
    History() {
        Entry("ab_grp", "[RepChangeEffects]\r\ngroup = ab_grp\r\nemphaty_rate = cd_grp, -0.3\r\n",
              "[FactionProps]\r\nlegality = lawful\r\nnpc_ship = ship_a\r\n",
              "[Group]\r\nnickname = ab_grp\r\nids_name = 5\r\nrep = 0.5, cd_grp\r\n");
        Entry("cd_grp", "[RepChangeEffects]\r\ngroup = cd_grp\r\n",
              "[FactionProps]\r\nlegality = unlawful\r\n", "[Group]\r\nids_name = 9\r\n");
        TempFolder::Write(Host() + "/misc/factions.ini", "");
    }
    std::string Host() const { return app.path() + "/projects/P"; }
    std::string Piece(std::string_view piece) const {
        return modFunctions::ProjectPath(app.path(), "P", piece);
    }
    // The project's files the history keeps: without the protocol and the compiled folder.
    std::map<std::string, std::string> Kept() const {
        std::map<std::string, std::string> files;
        for (auto& [path, bytes] : Snapshot())
            files[fs::path(path.substr(Host().size())).generic_string()] = std::move(bytes);
        std::erase_if(files, [](const auto& file) {
            std::string lower = file.first;
            std::transform(lower.begin(), lower.end(), lower.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
            return lower.starts_with("/protocol/") || lower.starts_with("/compiled/");
        });
        return files;
    }
    Closed Step(EditHistory& history, const std::function<void()>& action) {
        history.Open("step");
        action();
        return history.Close();
    }
};

// 200 seeded operations of every kind the window runs (registry, INI values, several files at
// once, imports, deletions, the protocol and a compile's output beside them, undo and redo
// between them, merged typing), then everything undone and redone again.
TEST_F(History, UndoingEverythingRestoresTheStartAndRedoingRestoresTheEnd) {
    EditHistory history(Folder());
    const auto start = Kept();
    std::mt19937 random(20261125);
    const auto pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const auto nick = [&] { return std::string(Nicks[pick(5)]); };
    for (int i = 0; i < 200; ++i) {
        const std::string value = std::to_string(i);
        const int kind = pick(11);
        SCOPED_TRACE("operation " + value + " kind " + std::to_string(kind));
        switch (kind) {
        case 0:
            Step(history, [&] { modFunctions::SaveFaction(app.path(), "P", nick(), "d" + value); });
            break;
        case 1:
            Step(history, [&] {
                const std::string name = nick();
                modFunctions::DeleteFaction(app.path(), "P", name, name);
            });
            break;
        case 2:
            Step(history, [&] {
                txtReadWrite::WriteIni("FactionProps", "legality", value,
                                       Piece("\\faction_prop\\" + nick() + ".ini"));
            });
            break;
        case 3:
            Step(history, [&] {
                txtReadWrite::Transaction transaction;
                transaction.WriteIni("Group", "rep", value, Piece("\\initialworld\\" + nick()));
                transaction.WriteIni("s", "k", value, Piece("\\emphaty\\new\\" + nick() + ".tmp"));
                transaction.WriteFileText(Piece("\\faction_prop\\shiplist_" + nick() + ".lst"),
                                          "ship_" + value);
                transaction.Commit();
            });
            break;
        case 4:
            Step(history, [&] {
                importer::ImportOriginalFaction(app.path(), pick(2) ? "ab_grp" : "cd_grp",
                                                Folder());
            });
            break;
        case 5:
            Step(history, [&] { importer::ImportAllOriginalFactions(app.path(), Folder()); });
            break;
        case 6: // the log and a compile's output are written, and neither is a step
            EXPECT_EQ(Step(history,
                           [&] {
                               modFunctions::WriteProtocol(app.path(), "P", "entry " + value);
                               txtReadWrite::WriteFileText(Piece("\\compiled\\emphaty.ini"), value);
                           }),
                      Closed::Nothing);
            break;
        case 7:
            if (history.UndoCount() > 0)
                history.Undo();
            break;
        case 8:
            if (history.RedoCount() > 0)
                history.Redo();
            break;
        case 9: { // typing: each keystroke a write, all of them one step
            const std::string file = Piece("\\faction_prop\\" + nick() + ".ini");
            const std::size_t before = history.UndoCount();
            for (char c : value) {
                if (Step(history,
                         [&] {
                             txtReadWrite::WriteIni("FactionProps", "ids", std::string(1, c), file);
                         }) == Closed::Recorded &&
                    history.UndoCount() > before + 1)
                    history.MergeLast();
            }
            EXPECT_LE(history.UndoCount(), before + 1);
            break;
        }
        default:
            Step(history,
                 [&] { platform::DeleteFile(Piece("\\faction_prop\\" + nick() + ".ini")); });
            break;
        }
    }
    const auto end = Kept();
    ASSERT_NE(end, start);
    ASSERT_GT(history.UndoCount(), 20u);
    const auto protocol = TempFolder::Read(Host() + "/Protocol/protocol.txt");
    while (history.UndoCount() > 0)
        history.Undo();
    EXPECT_EQ(Kept(), start);
    EXPECT_EQ(TempFolder::Read(Host() + "/Protocol/protocol.txt"),
              protocol); // a log is never rewound
    while (history.RedoCount() > 0)
        history.Redo();
    EXPECT_EQ(Kept(), end);
}

// A file of the step changed by another program: undo (and redo) refuse, naming that file,
// and write nothing at all, the step's other files included.
TEST_F(History, AnOutsideChangeRefusesUndoAndRedoAndWritesNothing) {
    const std::string a = Host() + "/faction_prop/a.ini";
    const std::string b = Host() + "/faction_prop/b.ini";
    struct Case {
        const char* name;
        bool redo;
        std::function<void(const std::string&)> change;
    };
    const Case cases[] = {
        {"edited", false, [](const std::string& f) { TempFolder::Write(f, "outside"); }},
        {"deleted", false, [](const std::string& f) { fs::remove(f); }},
        {"edited before redo", true, [](const std::string& f) { TempFolder::Write(f, "x"); }},
        {"created before redo", true, [](const std::string& f) { TempFolder::Write(f, "new"); }},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        fs::remove(a);
        fs::remove(b);
        TempFolder::Write(a, "a0");
        EditHistory history(Folder());
        ASSERT_EQ(Step(history,
                       [&] {
                           txtReadWrite::WriteFileText(a, "a1");
                           txtReadWrite::WriteFileText(b, "b1"); // new in this step
                       }),
                  Closed::Recorded);
        if (test.redo)
            history.Undo();
        test.change(b);
        const auto before = Snapshot();
        try {
            test.redo ? history.Redo() : history.Undo();
            ADD_FAILURE() << "not refused";
        } catch (const HistoryRefused& refused) {
            EXPECT_EQ(refused.file(), platform::HostPath(b));
            EXPECT_NE(std::string(refused.what()).find("b.ini"), std::string::npos);
        }
        EXPECT_EQ(Snapshot(), before);
        EXPECT_EQ(history.UndoCount() + history.RedoCount(), 1u);
    }
}

// The history holds a bounded number of bytes: beyond it the oldest steps go, and undoing
// all that is left ends at the state after the dropped ones. A step larger than the whole
// bound is done but cannot be undone, and empties the history.
// Undo and redo fail as any write may: whichever file call fails, with a full disk or an I/O
// error, every file is as it was and the step is still there to take again.
TEST_F(History, AFailingFileCallLeavesUndoAndRedoAsTheyWere) {
    const std::string a = Host() + "/faction_prop/a.ini", b = Host() + "/emphaty/new/b.ini";
    TempFolder::Write(a, "a0");
    EditHistory history(Folder());
    ASSERT_EQ(Step(history,
                   [&] {
                       txtReadWrite::WriteFileText(a, "a1");
                       txtReadWrite::WriteFileText(b, "b1");
                   }),
              Closed::Recorded);
    int failures = 0;
    for (const bool undo : {true, false})
        for (const int error : {ENOSPC, EIO}) {
            if (!undo)
                history.Undo(); // a step to redo
            for (int n = 1;; ++n) {
                const auto before = Snapshot();
                NthCallFails failing(n, error);
                try {
                    const platform::FileCallsInstalled installed(failing);
                    undo ? history.Undo() : history.Redo();
                } catch (const platform::FileError&) {
                    ++failures;
                    ASSERT_EQ(Snapshot(), before) << undo << " " << n;
                    continue;
                }
                if (undo)
                    history.Redo(); // back to where the next error starts
                break;
            }
        }
    EXPECT_GE(failures, 8);
    EXPECT_EQ(TempFolder::Read(a), "a1\r\n");
}

TEST_F(History, TheMemoryBoundDropsTheOldestSteps) {
    const std::string file = Host() + "/misc/big.lst";
    EditHistory history(Folder(), 10000);
    std::vector<std::string> states{""};
    for (int i = 0; i < 8; ++i) {
        states.push_back(
            std::string(1000 + static_cast<std::size_t>(i), 'a' + static_cast<char>(i)));
        ASSERT_EQ(Step(history, [&] { platform::ReplaceFile(file, states.back()); }),
                  Closed::Recorded);
        EXPECT_LE(history.HeldBytes(), 10000u);
    }
    EXPECT_EQ(history.UndoCount(), 4u); // each step holds about 2000 bytes
    EXPECT_EQ(history.DroppedSteps(), 4u);
    while (history.UndoCount() > 0)
        history.Undo();
    EXPECT_EQ(TempFolder::Read(file), states[4]);

    EXPECT_EQ(Step(history, [&] { platform::ReplaceFile(file, std::string(12000, 'z')); }),
              Closed::NotUndoable);
    EXPECT_EQ(TempFolder::Read(file), std::string(12000, 'z'));
    EXPECT_EQ(history.UndoCount() + history.RedoCount(), 0u);
}

// What is written outside a step, or outside the project, is nobody's step; a step inside
// a step is part of it.
TEST_F(History, OnlyTheProjectsFilesWrittenInsideAStepAreKept) {
    EditHistory history(Folder());
    const std::string inside = Host() + "/misc/a.lst";
    txtReadWrite::WriteFileText(inside, "unrecorded");
    EXPECT_EQ(Step(history, [&] { txtReadWrite::WriteFileText(app.path() + "/Kelvaro.ini", "x"); }),
              Closed::Nothing);
    history.Open("outer");
    EXPECT_EQ(Step(history, [&] { txtReadWrite::WriteFileText(inside, "one"); }), Closed::Nothing);
    txtReadWrite::WriteFileText(Host() + "/misc/b.lst", "two");
    ASSERT_EQ(history.Close(), Closed::Recorded);
    EXPECT_EQ(history.UndoLabel(), "outer");
    EXPECT_EQ(history.UndoFiles().size(), 2u);
    history.Undo();
    EXPECT_EQ(TempFolder::Read(inside), "unrecorded\r\n");
    EXPECT_FALSE(fs::exists(Host() + "/misc/b.lst"));
    EXPECT_EQ(history.RedoLabel(), "outer");

    // A change between two steps is what undoing the second returns to, not what the
    // first left.
    ASSERT_EQ(Step(history, [&] { txtReadWrite::WriteIni("s", "k", "1", inside); }),
              Closed::Recorded);
    TempFolder::Write(inside, "[s]\r\nk=outside\r\n");
    ASSERT_EQ(Step(history, [&] { txtReadWrite::WriteIni("s", "k", "2", inside); }),
              Closed::Recorded);
    history.Undo();
    EXPECT_EQ(TempFolder::Read(inside), "[s]\r\nk=outside\r\n");
}

} // namespace
