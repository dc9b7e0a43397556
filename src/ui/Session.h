// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What frmMain owns and its pages share: the application directory, the active project
// and the caption of lblActiveProject (some routines follow the one, some the other).
// Pages that change the registry say so through RegistryChanged; the registry panel reloads.
#include "core/modFunctions.h"

#include <QObject>
#include <string>
#include <string_view>

class Session : public QObject {
    Q_OBJECT
public:
    std::string appDir;        // as the system spells it (bytes, never re-encoded)
    std::string ActiveProject; // set by Load, emptied when the active project is deleted

    // The caption of lblActiveProject, as Windows-1252 bytes.
    const std::string& ActiveProjectCaption() const { return caption_; }
    void SetActiveProjectCaption(const std::string& caption) {
        caption_ = caption;
        emit ActiveProjectCaptionChanged();
    }

    // <app dir>\projects\<ActiveProject>
    std::string ProjectPath() const { return modFunctions::ProjectPath(appDir, ActiveProject); }
    // <app dir>\projects\<caption of lblActiveProject>
    std::string CaptionProjectPath() const { return modFunctions::ProjectPath(appDir, caption_); }
    // WriteProtocol into the project that lblActiveProject names.
    void WriteProtocol(std::string_view text) const {
        modFunctions::WriteProtocol(appDir, caption_, text);
    }

signals:
    void ActiveProjectCaptionChanged();
    // The registry of the active project was changed on disk (an import): every list of
    // factions is to be read again.
    void RegistryChanged();

private:
    std::string caption_;
};
