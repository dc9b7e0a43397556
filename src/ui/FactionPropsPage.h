// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The "Faction_Prop.ini" page: one faction's property sheet, its five pick lists on the tab
// strip SSTab2, and the compile button for compiled\faction_prop.ini. The controls are the
// only state; every change goes to disk in the handler that makes it.
#include "factionprops/ListFiles.h"
#include "ui/RegistryView.h"

#include <QPointer>
#include <QWidget>
#include <string>
#include <string_view>
#include <vector>

class Session;
class Dialogs;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QRadioButton;
class QTabWidget;
class VantelButton;
class frmFPBodyparts;

class FactionPropsPage : public QWidget, public RegistryView {
    Q_OBJECT
public:
    FactionPropsPage(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);
    ~FactionPropsPage() override;
    void ClearFactions() override;
    void AddFactions(const std::vector<modFunctions::RegistryEntry>& entries) override;
    bool ChooseFaction(const std::string& nickname) override;
    // Shows the first of the list tabs (ships).
    void ShowFirstList();
    // Shows the list's tab of SSTab2.
    void ShowList(factionprops::PickList list);
    // Screen readers name each pick list by its tab's caption and describe it by the hint
    // below it; called again after a language switch.
    void NameListsByTabs();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void cboFP_group_Click();
    void Option1_Click();
    void Option2_Click();
    void Option3_Click();
    void Option4_Click();
    void Option5_Click();
    void Option6_Click();
    void Option7_Click();
    void cboFPprefix_Change();
    void cboFPprefix_Click();
    void cboFPmc_Change();
    void cboFPmc_Click();
    void cboFPScanFracht_Click();
    void cboFPScanFracht_Change();
    void txtFPNameMale_Change();
    void txtFPFemale_Change();
    void txtFPLastname_Change();
    void txtFPrank_Change();
    void txtFPformation_Change();
    void txtFPScan_Change();
    void txtFPlsd_Change();
    void txtFPlsn_Change();

    void VantelButton8_Click();
    void VantelButton9_Click();
    void VantelButton10_Click();
    void VantelButton11_Click();
    void VantelButton12_Click();
    void lstFPShips_DblClick();
    void lstFPVoice_DblClick();
    void lstFPBodyparts_DblClick();
    void lstFPscan_DblClick();
    void lstFPformation_DblClick();

    void btnCompileFP_Click();

    // "OK" of frmFPBodyparts.
    void AddBodypart(const QString& entry);

private:
    // The nickname cboFP_group shows, as file bytes; "" when none.
    std::string ShownFaction() const;
    // Writes one key of the shown faction's sheet.
    void Store(std::string_view key, const QString& value);
    void Store(std::string_view key, std::string_view value);
    // Adds an entry and writes the list file of the shown faction in the given project.
    void AddEntry(QListWidget* list, factionprops::PickList kind, const QString& entry,
                  const std::string& project);
    void RemoveSelected(QListWidget* list, factionprops::PickList kind);
    // False (after showing the error) when the file could not be written.
    bool WriteList(QListWidget* list, factionprops::PickList kind, const std::string& project,
                   const std::string& faction);
    void LoadLists(const std::string& faction);
    // Shows the faction's stored values in the controls (their handlers write back).
    void ShowStoredValues(const std::string& faction);
    void ReportError(const QString& text);
    // With no faction shown in the picker the property and list controls show their initial
    // values and take no edits; a nickname shown (picked or typed) makes them editable.
    void cboFP_group_TextChanged(const QString& text);
    void ShowInitialValues();

    Session& session;
    Dialogs& dialogs;

    // While loading, the first failure is kept and shown once at the end.
    bool loading = false;
    QString loadError;

    QComboBox* cboFP_group;
    QRadioButton* Option1;
    QRadioButton* Option2;
    QRadioButton* Option3;
    QRadioButton* Option4;
    QRadioButton* Option5;
    QRadioButton* Option6;
    QRadioButton* Option7;
    QComboBox* cboFPprefix;
    QComboBox* cboFPmc;
    QLabel* Label20;
    QLabel* Label21;
    QLabel* Label22;
    QLineEdit* txtFPNameMale;
    QLineEdit* txtFPFemale;
    QLineEdit* txtFPLastname;
    QLineEdit* txtFPrank;
    QLineEdit* txtFPformation;
    QLineEdit* txtFPlsd;
    QLineEdit* txtFPlsn;
    QLabel* Label29;
    QComboBox* cboFPScanFracht;
    QLineEdit* txtFPScan;

    QTabWidget* SSTab2;
    QListWidget* lstFPShips;
    QComboBox* cboFPShips;
    VantelButton* VantelButton9;
    QLabel* Label15;
    QListWidget* lstFPVoice;
    QComboBox* cboFPVoice;
    VantelButton* VantelButton10;
    QLabel* Label16;
    QListWidget* lstFPBodyparts;
    VantelButton* VantelButton8;
    QLabel* Label17;
    QListWidget* lstFPscan;
    QComboBox* cboFPScan;
    VantelButton* VantelButton11;
    QListWidget* lstFPformation;
    QComboBox* cboFPFormation;
    QComboBox* cboFPformation2;
    VantelButton* VantelButton12;
    QLabel* Label19;

    VantelButton* btnCompileFP;
    QProgressBar* pgFP2;

    QPointer<frmFPBodyparts> bodyparts;
    QList<QWidget*> factionControls; // what edits the shown faction's sheet and lists
};
