#pragma once
// What frmMain owns and its pages share: the application directory, the active project
// and the caption of lblActiveProject (some routines follow the one, some the other).
#include "core/modFunctions.h"

#include <functional>
#include <string>
#include <string_view>

struct Session {
    std::string appDir;        // as the system spells it (bytes, never re-encoded)
    std::string ActiveProject; // set by Load, emptied when the active project is deleted
    // The caption of lblActiveProject, as Windows-1252 bytes.
    std::function<std::string()> activeProjectCaption = [] { return std::string(); };
    // LoadFactionRegistry of the main window (registry list, pickers and list views).
    std::function<void()> loadFactionRegistry = [] {};

    // <app dir>\projects\<ActiveProject><piece>
    std::string ProjectPath(std::string_view piece = {}) const {
        return modFunctions::ProjectPath(appDir, ActiveProject, piece);
    }
    // <app dir>\projects\<caption of lblActiveProject><piece>
    std::string CaptionProjectPath(std::string_view piece = {}) const {
        return modFunctions::ProjectPath(appDir, activeProjectCaption(), piece);
    }
    // WriteProtocol into the project that lblActiveProject names.
    void WriteProtocol(std::string_view text) const {
        modFunctions::WriteProtocol(appDir, activeProjectCaption(), text);
    }
};
