// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A main window on a fresh application folder, for the tests that drive the whole window:
// make its folder and open it in init, close it in cleanup, find its controls by name.
#include "support/TempFolder.h"
#include "ui/Session.h"
#include "ui/frmMain.h"
#include "ui/support/Controls.h"
#include "ui/support/ScriptedDialogs.h"

#include <QString>
#include <memory>

class MainWindowFixture {
protected:
    // A fresh application folder; the test may fill it before OpenWindow.
    void NewFolder() { folder = std::make_unique<TempFolder>(); }
    void OpenWindow() {
        // A deleted project goes to this folder's trash, not the user's.
        qputenv("XDG_DATA_HOME", QByteArray::fromStdString((*folder) / "data home"));
        session = std::make_unique<Session>();
        session->appDir = folder->path();
        dialogs = std::make_unique<ScriptedDialogs>();
        window = std::make_unique<frmMain>(*session, *dialogs);
        window->show();
    }
    // In the reverse order of making: the window refers to the session and the dialogs.
    void CloseWindow() {
        window.reset();
        dialogs.reset();
        session.reset();
        folder.reset();
    }
    template <class T> T* Get(const char* name) { return Control<T>(window.get(), name); }

    std::unique_ptr<TempFolder> folder;
    std::unique_ptr<Session> session;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<frmMain> window;
};
