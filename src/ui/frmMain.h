// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The main window: the three buttons above, the tab strip SSTab1 with the project manager
// and the registry panel on its first page, one page per game file and the script page.
// The panels and the slide between them live in their own classes; this window arranges
// them, switches the language, shows the About window and navigates between pages.
#include "factionprops/ListFiles.h"
#include "ui/Captions.h"

#include <QPointer>
#include <QWidget>
#include <string>

class QTabWidget;
namespace check {
struct Finding;
}
class Dialogs;
class EditSteps;
class FactionPropsPage;
class ProjectManagerPanel;
class RegistryPanel;
class Session;
class SlideAnimation;
class VantelButton;
class frmAbout;

class frmMain : public QWidget {
    Q_OBJECT
public:
    frmMain(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

    // The pages of SSTab1, by index.
    enum Page {
        Projects = 0,
        Emphaty = 1,
        FactionProp = 2,
        InitialWorld = 3,
        Script = 4,
        Matrix = 5
    };

    // The two language routines; the language button calls one of them.
    void German();
    void English();
    // The language the window shows: the language button offers the other one.
    captions::Language ShownLanguage() const;

    // Refills the registry list and every page's pickers and list views from the registry
    // of the project that lblActiveProject names. Any error ends it silently.
    void LoadFactionRegistry();

    // Adds a page at the end of SSTab1 and returns its index. A page that is a RegistryView
    // is filled by LoadFactionRegistry from then on, and ShowFaction can choose in it.
    int AddPage(QWidget* page, const QString& caption);
    // Shows the page and, on a page that lists the registered factions, chooses the faction
    // in its picker as the user's choice would (its values are loaded). False when the page
    // does not exist or does not list that faction; the page is shown all the same.
    bool ShowFaction(int page, const std::string& nickname);
    // Shows a pick list's tab on the faction-property page.
    void ShowPickList(factionprops::PickList list);
    // Takes the user to what a finding of the project check is about: its store's page with
    // the faction chosen as a user's pick would choose it (the registry list's entry, for the
    // registry), and for a list file the list's tab.
    void ShowFinding(const check::Finding& finding);
    // The registry panel, for what more it is to hold (AddButton).
    RegistryPanel& Registry() const { return *registryPanel; }
    // The history of the active project's edits, behind btnUndo and btnRedo.
    EditSteps& Steps() const { return *steps; }

protected:
    void closeEvent(QCloseEvent* event) override;

private slots:
    void Form_Load();
    void VantelButton1_Click();
    void VantelButton2_Click();
    void VantelButton3_Click();
    // Load in the project manager: fill the lists, enable the imports, slide to the registry.
    void Frame1_ProjectLoaded();

private:
    void BuildTopButtons();
    // btnUndo and btnRedo beside "?", their shortcuts, and what follows an undo or redo.
    void BuildHistoryButtons();
    void ShowHistory();
    // Every page, the registry list and the matrix read the restored files again, keeping
    // the page and the factions chosen in them.
    void ShowRestoredFiles();
    QWidget* BuildProjectsPage();

    Session& session;
    Dialogs& dialogs;

    VantelButton* VantelButton1;
    VantelButton* VantelButton2;
    VantelButton* VantelButton3;
    VantelButton* btnUndo;
    VantelButton* btnRedo;
    EditSteps* steps;
    QTabWidget* SSTab1;

    ProjectManagerPanel* Frame1;
    RegistryPanel* registryPanel; // Frame2
    SlideAnimation* slides;

    FactionPropsPage* factionPropsPage = nullptr;

    QPointer<frmAbout> about; // at most one About window at a time
};
