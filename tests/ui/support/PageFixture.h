// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One page on a fresh application folder with one project loaded, for the tests that drive a
// single page: make it in init, drop it in cleanup, find its controls by name.
#include "core/modFunctions.h"
#include "support/TempFolder.h"
#include "ui/Session.h"
#include "ui/support/Controls.h"
#include "ui/support/ScriptedDialogs.h"

#include <QString>
#include <memory>
#include <string>

template <class Page> class PageFixture {
protected:
    void OpenPage(const std::string& project) {
        folder = std::make_unique<TempFolder>();
        modFunctions::EnsureProjectsFolder(folder->path());
        modFunctions::CreateProjectFolders(folder->path(), project);
        session = std::make_unique<Session>();
        session->appDir = folder->path();
        session->ActiveProject = project;
        session->SetActiveProjectCaption(project);
        dialogs = std::make_unique<ScriptedDialogs>();
        page = std::make_unique<Page>(*session, *dialogs);
    }
    // In the reverse order of making: the page refers to the session and the dialogs.
    void ClosePage() {
        page.reset();
        dialogs.reset();
        session.reset();
        folder.reset();
    }
    template <class T> T* Get(const char* name) { return Control<T>(page.get(), name); }

    std::unique_ptr<TempFolder> folder;
    std::unique_ptr<Session> session;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<Page> page;
};
