// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The "Initialworld.ini" page: a faction's three IDS numbers and its starting reputations,
// stored as they are edited, and the button that compiles compiled\initialworld.ini.
#include "ui/RegistryView.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QTreeWidget;
class VantelButton;
class Session;
class Dialogs;

class InitialWorldPage : public QWidget, public RegistryView {
    Q_OBJECT
public:
    InitialWorldPage(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);
    void ClearFactions() override;
    void AddFactions(const std::vector<modFunctions::RegistryEntry>& entries) override;
    bool ChooseFaction(const std::string& nickname) override;

private slots:
    void cboInit_group_Click();
    void txtInitName_Change();
    void txtInitShortName_Change();
    void txtInitInfo_Change();
    void lv_Init_DblClick();
    void VantelButton13_Click();

private:
    std::string DataFile() const;
    void StoreIds(std::string_view key, const QLineEdit* box);
    // With no faction chosen the IDS boxes are empty and take no edits.
    void cboInit_group_Chosen(int index);

    Session& session;
    Dialogs& dialogs;

    QLabel* Label35;
    QLabel* Label32;
    QLabel* Label33;
    QLabel* Label34;
    QComboBox* cboInit_group;
    QLineEdit* txtInitName;
    QLineEdit* txtInitShortName;
    QLineEdit* txtInitInfo;
    QTreeWidget* lv_Init;
    VantelButton* VantelButton13;
    QLabel* Label31;
    QProgressBar* pgInit1;
    QLabel* Label25;
    QProgressBar* pgInit2;
    QCheckBox* chkForceRep2;
};
