// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The faction registry panel (Frame2 on the first page): the registry list of the loaded
// project, the form that adds, regroups and deletes factions, the reload button, the import
// buttons with their progress bar, and the name of the loaded project.
#include <QGroupBox>
#include <vector>

class QAction;
class QLabel;
class QLineEdit;
class QProgressBar;
class QTreeWidget;
class Dialogs;
class ImportActions;
class RegistryView;
class Session;
class VantelButton;

class RegistryPanel : public QGroupBox {
    Q_OBJECT
public:
    RegistryPanel(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

    // A page whose pickers and list views LoadFactionRegistry fills, in the order added.
    void AddView(RegistryView* view);
    // One more image button on the panel, in the next free place of the button rows; the
    // caller connects its Click and gives it its captions.
    VantelButton* AddButton(const char* name);

    // Refills the registry list and every view's pickers and list views from the registry
    // of the project that lblActiveProject names. Any error ends it silently.
    void LoadFactionRegistry();
    // lblFactionsGesamt: the number of factions in the registry list.
    void ShowFactionCount();
    // The import buttons work only while a project is active.
    void UpdateImportButtons();
    // Selects the faction's entry in the registry list as a click does; false when unlisted.
    bool ChooseFaction(const std::string& nickname);

private slots:
    void btnnewfactionnew_Click();
    void btnnewfactiondel_Click();
    void btnnewfactionreload_Click();
    void lv_newfactions_Click();
    // The faction menu of the registry list (right button, Menu key, Shift+F10).
    void lv_newfactions_ContextMenu(const QPoint& at);
    void mnuRenameFaction_Click();
    void mnuDuplicateFaction_Click();

private:
    // Fills the lists from the registry file; throws when it cannot be read.
    void FillFromRegistry(const std::string& registry);
    // The nickname of the selected faction, empty when none is; the registry is reloaded and
    // the faction given selected after an edit of it.
    QString SelectedNickname() const;
    void ShowEdited(const std::string& nickname);

    Session& session;
    Dialogs& dialogs;
    std::vector<RegistryView*> views;
    int addedButtons = 0;
    VantelButton* lastAdded = nullptr;

    QLabel* lblRegistryProject;
    QTreeWidget* lv_newfactions;
    QAction* mnuRenameFaction;
    QAction* mnuDuplicateFaction;
    QGroupBox* frmnewFaction;
    QLineEdit* txtNewNick;
    QLineEdit* txtNewDescr;
    VantelButton* btnnewfactionnew;
    VantelButton* btnnewfactiondel;
    VantelButton* btnnewfactionreload;
    QProgressBar* pgLoadProject;
    QLabel* lblFactions;
    QLabel* lblFactionsGesamt;
    VantelButton* btnImport;
    VantelButton* btnImportAll;
    QProgressBar* pgImportAll;
    ImportActions* importActions;
};
